// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/MarkOverlay.h"

#include <algorithm>
#include <cmath>

namespace zumeta {

namespace {

constexpr double kOne = 1 << 15;

/// Sums of premultiplied values, 0..1.
struct Sample {
    double r = 0, g = 0, b = 0, a = 0;
    void add(const uint8_t* pixel, double weight)
    {
        r += weight * pixel[0] / 255;
        g += weight * pixel[1] / 255;
        b += weight * pixel[2] / 255;
        a += weight * pixel[3] / 255;
    }
};

/// BT.709, limited range, premultiplied: a fully transparent sample gives 0 in every plane.
double codeOf(const Sample& s, int plane)
{
    const double y = 0.2126 * s.r + 0.7152 * s.g + 0.0722 * s.b;
    if (plane == 0)
        return 16 * s.a + 219 * y;
    return 128 * s.a + 224 * (plane == 1 ? (s.b - y) / 1.8556 : (s.r - y) / 1.5748);
}

Sample lumaSample(const MarkImage& image, int x, int y)
{
    Sample sample;
    sample.add(image.pixel(x, y), 1);
    return sample;
}

/// Sited left: the column of the even luma sample, between two rows.
Sample chromaSample(const MarkImage& image, int x, int y)
{
    Sample sample;
    for (int row = 2 * y; row < 2 * y + 2; ++row) {
        for (int column = 2 * x - 1; column <= 2 * x + 1; ++column) {
            const double weight = column == 2 * x ? 0.25 : 0.125;
            sample.add(image.pixel(std::clamp(column, 0, image.width - 1), row), weight);
        }
    }
    return sample;
}

}

MarkOverlay::MarkOverlay(const MarkImage& image)
    : m_width(image.width)
    , m_height(image.height)
{
    for (int plane = 0; plane < 3; ++plane) {
        const int columns = plane == 0 ? m_width : m_width / 2;
        const int rows = plane == 0 ? m_height : m_height / 2;
        const auto sampleAt = plane == 0 ? lumaSample : chromaSample;
        int left = columns, top = rows, right = 0, bottom = 0;
        for (int y = 0; y < rows; ++y) {
            for (int x = 0; x < columns; ++x) {
                if (sampleAt(image, x, y).a <= 0)
                    continue;
                left = std::min(left, x);
                right = std::max(right, x + 1);
                top = std::min(top, y);
                bottom = y + 1;
            }
        }
        PlanePatch& patch = m_patches[size_t(plane)];
        if (left >= right)
            continue;
        patch = {left, top, right - left, bottom - top, {}, {}};
        for (int y = top; y < bottom; ++y) {
            for (int x = left; x < right; ++x) {
                const Sample sample = sampleAt(image, x, y);
                patch.colour.push_back(int32_t(std::lround(codeOf(sample, plane) * kOne)));
                patch.transparency.push_back(int32_t(std::lround((1 - sample.a) * kOne)));
            }
        }
    }
}

void MarkOverlay::drawOver(const WritablePicture& picture) const
{
    if (picture.width != m_width || picture.height != m_height)
        return;
    for (size_t plane = 0; plane < 3; ++plane) {
        const PlanePatch& patch = m_patches[plane];
        for (int y = 0; y < patch.height; ++y) {
            uint8_t* const row = picture.planes[plane].data + picture.planes[plane].stride * (patch.y + y) + patch.x;
            const size_t first = size_t(y) * size_t(patch.width);
            for (int x = 0; x < patch.width; ++x) {
                const int32_t sum = patch.colour[first + size_t(x)] + row[x] * patch.transparency[first + size_t(x)];
                row[x] = uint8_t(std::clamp((sum + (1 << 14)) >> 15, 0, 255));
            }
        }
    }
}

}
