// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/Watermark.h"

#include <QFont>
#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>
#include <cstring>

namespace zumeta {

namespace {

// Fractions of the shorter side.
constexpr double kFontSize = 0.11;
constexpr double kDistance = 0.025;
constexpr double kShadowDrop = 0.004;
constexpr double kShadowBlur = 0.006;
constexpr double kTextOpacity = 0.62;
constexpr double kShadowOpacity = 0.85;

/// The outline of the text with its baseline's start at the origin, and what its line takes up.
struct TextShape {
    QPainterPath outline;
    double width;
    double descent;
};

TextShape shapeOf(const QString& text, double size)
{
    // Drawn large and scaled down: font sizes in pixels are whole numbers, and hinting would shift the letters.
    constexpr int kDesignSize = 1000;
    QFont font(QStringLiteral("Helvetica"));
    font.setBold(true);
    font.setStyleHint(QFont::SansSerif);
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setPixelSize(kDesignSize);
    const QFontMetricsF metrics(font);
    const double scale = size / kDesignSize;
    QPainterPath outline;
    outline.addText(0, 0, font, text);
    return {QTransform::fromScale(scale, scale).map(outline), metrics.horizontalAdvance(text) * scale,
            metrics.descent() * scale};
}

/// How much of each pixel a shape covers, 0..1.
std::vector<double> coverageOf(const QPainterPath& shape, int width, int height)
{
    QImage image(width, height, QImage::Format_Alpha8);
    image.fill(0);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(shape, Qt::black);
    painter.end();
    std::vector<double> coverage(size_t(width) * size_t(height));
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            coverage[size_t(y) * size_t(width) + size_t(x)] = image.constScanLine(y)[x] / 255.0;
    }
    return coverage;
}

/// One direction of a Gaussian blur; `step` is the distance of neighbours, `count` the number of samples in a line.
void blurLine(double* line, size_t step, int count, const std::vector<double>& kernel, std::vector<double>& copy)
{
    const int reach = int(kernel.size()) - 1;
    copy.resize(size_t(count));
    for (int i = 0; i < count; ++i)
        copy[size_t(i)] = line[size_t(i) * step];
    for (int i = 0; i < count; ++i) {
        double sum = 0;
        for (int j = std::max(0, i - reach); j <= std::min(count - 1, i + reach); ++j)
            sum += copy[size_t(j)] * kernel[size_t(std::abs(i - j))];
        line[size_t(i) * step] = sum;
    }
}

void blur(std::vector<double>& coverage, int width, int height, double sigma)
{
    std::vector<double> kernel;
    double total = 0;
    for (int i = 0; i <= int(std::ceil(3 * sigma)); ++i) {
        kernel.push_back(std::exp(-0.5 * i * i / (sigma * sigma)));
        total += (i == 0 ? 1 : 2) * kernel.back();
    }
    for (double& weight : kernel)
        weight /= total;
    std::vector<double> copy;
    for (int y = 0; y < height; ++y)
        blurLine(coverage.data() + size_t(y) * size_t(width), 1, width, kernel, copy);
    for (int x = 0; x < width; ++x)
        blurLine(coverage.data() + x, size_t(width), height, kernel, copy);
}

}

std::optional<MarkImage> createWatermarkImage(Size renderSize)
{
    const int width = int(std::lround(renderSize.width));
    const int height = int(std::lround(renderSize.height));
    if (width < 1 || height < 1)
        return std::nullopt;
    const double side = std::min(renderSize.width, renderSize.height);
    const TextShape text = shapeOf(QStringLiteral("Zumeta"), side * kFontSize);
    const double x = renderSize.width - text.width - side * kDistance;
    const double baseline = renderSize.height - (side * kDistance + text.descent); // of the picture's rows, downward
    const std::vector<double> letters = coverageOf(text.outline.translated(x, baseline), width, height);
    std::vector<double> shadow = coverageOf(text.outline.translated(x, baseline + side * kShadowDrop), width, height);
    blur(shadow, width, height, side * kShadowBlur / 2); // a blur radius is two standard deviations

    MarkImage mark{width, height, std::vector<uint8_t>(letters.size() * 4)};
    for (size_t i = 0; i < letters.size(); ++i) {
        // White letters over their black shadow, which is cast by letters that are themselves translucent.
        const double white = letters[i] * kTextOpacity;
        const double alpha = white + shadow[i] * kTextOpacity * kShadowOpacity * (1 - white);
        const uint8_t value = uint8_t(std::lround(white * 255));
        std::fill_n(mark.rgba.begin() + ptrdiff_t(4 * i), 3, value);
        mark.rgba[4 * i + 3] = uint8_t(std::lround(alpha * 255));
    }
    return mark;
}

}
