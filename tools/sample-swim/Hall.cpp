// SPDX-License-Identifier: GPL-3.0-or-later
#include "Hall.h"

#include "Blur.h"
#include "Noise.h"

#include <array>

namespace zumeta::swim {

namespace {

constexpr float kWindowPeriod = 262;
constexpr int kWindows = 14;
constexpr float kPeriod = kWindowPeriod * kWindows;

/// Paints with units: x from 0 to kPeriod and round again, y from the far edge of the pool, negative upward.
class Painter {
public:
    Painter(Canvas& canvas, const View& view)
        : m_canvas(canvas)
        , m_view(view)
        , m_columnsPerUnit(float(canvas.width()) / kPeriod)
    {}

    /// Lays `colour` where `cover(x, y)` is above 0, between the two heights.
    template <typename Cover> void fill(float fromY, float toY, Colour colour, Cover cover)
    {
        paint(0, kPeriod, fromY, toY,
              [&](Colour& pixel, float x, float y) { pixel = mix(pixel, colour, clamp01(cover(x, y))); });
    }
    void band(float fromY, float toY, Colour colour, float alpha = 1)
    {
        const float soft = 3;
        fill(fromY - soft, toY + soft, colour, [=](float, float y) {
            return alpha * smooth(fromY - soft, fromY + soft, y) * smooth(toY + soft, toY - soft, y);
        });
    }
    /// A soft-edged oval.
    void blob(float cx, float cy, float rx, float ry, Colour colour, float alpha)
    {
        paint(cx - 2 * rx, cx + 2 * rx, cy - 2 * ry, cy + 2 * ry, [&](Colour& pixel, float x, float y) {
            const float d = square((x - cx) / rx) + square((y - cy) / ry);
            pixel = mix(pixel, colour, alpha * bell(d, 1));
        });
    }
    /// A soft-edged box.
    void box(float cx, float cy, float rx, float ry, Colour colour, float alpha)
    {
        paint(cx - rx - 6, cx + rx + 6, cy - ry - 6, cy + ry + 6, [&](Colour& pixel, float x, float y) {
            pixel = mix(pixel, colour,
                        alpha * smooth(rx + 4, rx - 4, std::abs(x - cx)) * smooth(ry + 4, ry - 4, std::abs(y - cy)));
        });
    }
    template <typename Set> void paint(float fromX, float toX, float fromY, float toY, Set set)
    {
        const int firstRow = std::max(0, int(m_view.row(fromY + kFarEdge)));
        const int lastRow = std::min(m_canvas.height() - 1, int(m_view.row(toY + kFarEdge)) + 1);
        const int firstColumn = floorInt(fromX * m_columnsPerUnit);
        const int lastColumn = std::min(floorInt(toX * m_columnsPerUnit), firstColumn + m_canvas.width() - 1);
        for (int row = firstRow; row <= lastRow; ++row)
            for (int column = firstColumn; column <= lastColumn; ++column)
                set(m_canvas.row(row)[(column % m_canvas.width() + m_canvas.width()) % m_canvas.width()],
                    float(column) / m_columnsPerUnit, m_view.y(float(row)) - kFarEdge);
    }

private:
    Canvas& m_canvas;
    const View& m_view;
    float m_columnsPerUnit;
};

/// A column below three times the width, taken back into the hall; much cheaper than a division for every pixel.
int wrapped(int column, int width)
{
    column -= column >= width ? width : 0;
    return column - (column >= width ? width : 0);
}

float windowOffset(float x)
{
    return (fraction(x / kWindowPeriod) - .5f) * kWindowPeriod;
}

void paintCeiling(Painter& painter)
{
    painter.paint(0, kPeriod, -2000, 40, [](Colour& pixel, float, float y) {
        pixel = mix(Colour::hex(0x0b1521), Colour::hex(0x33506a), smooth(-430, 60, y));
        pixel = mix(pixel, Colour::hex(0x070d15), smooth(-330, -900, y));
    });
    // Trusses under the roof, and two rows of lamps.
    const Colour steel = Colour::hex(0x3d566b);
    painter.band(-372, -364, steel, .8f);
    painter.band(-462, -456, steel, .6f);
    painter.fill(-460, -366, steel, [](float x, float y) {
        const float across = std::abs(fraction(x / 131) * 2 - 1) * 94 - (-366 - y);
        return .45f * smooth(5, 1, std::abs(across));
    });
    for (int i = 0; i < kWindows; ++i) {
        const float x = (float(i) + .5f) * kWindowPeriod;
        painter.blob(x, -408, 74, 30, Colour::hex(0x9fc4de), .28f);
        painter.blob(x, -408, 34, 9, Colour::hex(0xf4fbff), .95f);
        painter.blob(x + 131, -560, 110, 34, Colour::hex(0x8fb4d0), .22f);
        painter.blob(x + 131, -560, 52, 12, Colour::hex(0xe6f3fb), .85f);
        painter.blob(x, -740, 78, 17, Colour::hex(0xcfe3f0), .6f);
    }
}

void paintWindows(Painter& painter)
{
    painter.paint(0, kPeriod, -300, -164, [](Colour& pixel, float x, float y) {
        const float off = std::abs(windowOffset(x));
        const float glass = smooth(0, 10, 110 - off) * smooth(-296, -284, y) * smooth(-168, -180, y) * .92f;
        // Sky, and dark trees at the bottom of the panes.
        const float trees = smooth(-206, -176, y + 9 * std::sin(x / 23) + 6 * std::sin(x / 9));
        Colour sky = mix(Colour::hex(0xe9f6ff), Colour::hex(0xa9d4ee), (y + 298) / 130);
        sky = mix(sky, Colour::hex(0x86b2bd), trees * .55f);
        pixel = mix(pixel, sky, glass);
        pixel = mix(pixel, Colour::hex(0x203448), glass * .75f * smooth(4.5f, 2, off));
        pixel = mix(pixel, Colour::hex(0x203448), glass * .65f * smooth(4, 1.5f, std::abs(y + 234)));
    });
}

void paintStands(Painter& painter)
{
    painter.band(-148, -68, Colour::hex(0x182a3d));
    constexpr std::array kClothes{Colour::hex(0xc9b8a6), Colour::hex(0x39546f), Colour::hex(0x8f3b36),
                                  Colour::hex(0xd8dde2), Colour::hex(0x2b6f8f), Colour::hex(0xc2a45a)};
    Dice dice(3, 1);
    for (int i = 0; i < 640; ++i) {
        const float x = dice.between(0, kPeriod);
        const float y = -132 + 18 * float(int(dice.roll() * 3)) + dice.around(2);
        const float radius = dice.between(5, 9);
        const Colour clothes = kClothes[size_t(dice.roll() * float(kClothes.size()))];
        painter.blob(x, y, radius, radius, clothes * dice.between(.55f, .98f), .8f);
        painter.blob(x, y - radius * 1.15f, radius * .45f, radius * .5f, Colour::hex(0xb58c74) * dice.between(.6f, 1),
                     .8f);
    }
    painter.band(-71, -66, Colour::hex(0x6f93aa), .6f);
}

void paintDeck(Painter& painter)
{
    painter.band(-66, -15, Colour::hex(0x8fa6b4));
    painter.band(-30, -15, Colour::hex(0x5f7686), .5f);
    painter.band(-15, 40, Colour::hex(0x1479b8));
    for (int i = 0; i < kWindows * 3; ++i)
        painter.box(30 + float(i) * kPeriod / (kWindows * 3), -6, 24, 3, kWhite * .9f, .5f);
    // Starting blocks would stand at the end of the pool; along its side stand officials.
    struct Official {
        float x;
        Colour shirt;
    };
    constexpr std::array kOfficials{Official{240, Colour::hex(0xe8ecef)},  Official{705, Colour::hex(0xb83a34)},
                                    Official{1510, Colour::hex(0xe8ecef)}, Official{1590, Colour::hex(0x24496b)},
                                    Official{1760, Colour::hex(0xd7b24a)}, Official{2190, Colour::hex(0xe8ecef)},
                                    Official{2560, Colour::hex(0x2d6d4f)}, Official{2655, Colour::hex(0xe8ecef)},
                                    Official{3130, Colour::hex(0xb83a34)}, Official{3420, Colour::hex(0x24496b)}};
    for (const Official& official : kOfficials) {
        painter.box(official.x - 5, -22, 4, 20, Colour::hex(0x1c2633), .95f);
        painter.box(official.x + 6, -22, 4, 20, Colour::hex(0x1c2633), .95f);
        painter.box(official.x, -62, 12, 24, official.shirt, .95f);
        painter.blob(official.x, -98, 9, 10, Colour::hex(0x8a5f48), 1);
    }
}

}

Hall::Hall(const View& view)
    : m_viewWidth(view.width)
    , m_pixelsPerUnit(view.pixelsPerUnit)
    , m_sharp(int(std::lround(kPeriod * view.pixelsPerUnit)), std::clamp(int(view.row(kFarEdge)) + 2, 4, view.height))
{
    Painter painter(m_sharp, view);
    paintCeiling(painter);
    paintWindows(painter);
    paintStands(painter);
    paintDeck(painter);
    const float defocus = 4.4f * view.pixelsPerUnit;
    blurWrapped(m_sharp, defocus, defocus);
    m_mirrored = m_sharp;
    blurWrapped(m_mirrored, 4 * view.pixelsPerUnit, 7 * view.pixelsPerUnit);
}

float Hall::firstColumn(float camera) const
{
    const auto period = float(m_sharp.width());
    const float column = (camera * kHallDrift + 620) * m_pixelsPerUnit - float(m_viewWidth) * .5f;
    return column - std::floor(column / period) * period;
}

Colour Hall::at(float column, int row) const
{
    const int left = floorInt(column);
    const float f = column - float(left);
    const int width = m_sharp.width();
    const Colour* const pixels = m_sharp.row(row);
    return mix(pixels[wrapped(left, width)], pixels[wrapped(left + 1, width)], f);
}

Colour Hall::mirroredAt(float column, float row) const
{
    const int width = m_mirrored.width();
    const int left = floorInt(column) + width; // a ripple may look a little to the left of the first column
    const float f = column + float(width) - float(left);
    row = std::clamp(row, 0.f, float(m_mirrored.height() - 2));
    const int upperRow = int(row);
    const float fy = row - float(upperRow);
    const Colour* const upper = m_mirrored.row(upperRow);
    const Colour* const lower = m_mirrored.row(upperRow + 1);
    const int a = wrapped(left, width);
    const int b = wrapped(left + 1, width);
    return mix(mix(upper[a], upper[b], f), mix(lower[a], lower[b], f), fy);
}

}
