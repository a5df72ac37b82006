// SPDX-License-Identifier: GPL-3.0-or-later
#include "PictureConversion.h"

#include "Noise.h"

#include <array>

namespace zumeta::swim {

namespace {

constexpr float kRed = .2126f;
constexpr float kGreen = .7152f;
constexpr float kBlue = .0722f;

constexpr size_t kGrainSize = 64;

/// Every value from 0 to 1 equally often, without visible order.
std::array<float, kGrainSize * kGrainSize> makeGrain()
{
    std::array<float, kGrainSize * kGrainSize> grain{};
    for (size_t i = 0; i < grain.size(); ++i)
        grain[i] = (float(i) + .5f) / float(grain.size());
    for (size_t i = grain.size() - 1; i > 0; --i)
        std::swap(grain[i], grain[hashed(uint32_t(i), 77) % (i + 1)]);
    return grain;
}

Colour clamped(Colour c)
{
    return {clamp01(c.r), clamp01(c.g), clamp01(c.b)};
}

float luma(Colour c)
{
    return kRed * c.r + kGreen * c.g + kBlue * c.b;
}

void convertLumaRow(const Colour* pixels, int width, const float* grain, uint8_t* out)
{
    for (int x = 0; x < width; ++x)
        out[x] = uint8_t(16 + 219 * luma(clamped(pixels[x])) + grain[size_t(x) % kGrainSize]);
}

/// One row of chroma from two of the canvas: the mean down, and 1-2-1 across around every second column.
void convertChromaRow(const Colour* upper, const Colour* lower, int width, const float* grain, uint8_t* cb, uint8_t* cr)
{
    const auto column = [&](int x) { return clamped(upper[x]) + clamped(lower[x]); };
    Colour left = column(0);
    for (int x = 0; x < width; x += 2) {
        const Colour middle = column(x);
        const Colour right = column(std::min(x + 1, width - 1));
        const Colour c = (left + middle * 2 + right) * .125f;
        const float y = luma(c);
        const float noise = grain[size_t(x / 2 + 17) % kGrainSize];
        cb[x / 2] = uint8_t(128 + 224 * (c.b - y) / (2 * (1 - kBlue)) + noise);
        cr[x / 2] = uint8_t(128 + 224 * (c.r - y) / (2 * (1 - kRed)) + noise);
        left = right;
    }
}

}

void convert(const Canvas& canvas, const WritablePicture& picture, RowPool& pool)
{
    static const auto grain = makeGrain();
    const auto grainRow = [](int y) { return grain.data() + (size_t(y) % kGrainSize) * kGrainSize; };
    pool.run(0, canvas.height() / 2, 8, [&](int from, int to) {
        for (int half = from; half < to; ++half) {
            for (int y = 2 * half; y < 2 * half + 2; ++y)
                convertLumaRow(canvas.row(y), canvas.width(), grainRow(y),
                               picture.planes[0].data + y * picture.planes[0].stride);
            convertChromaRow(canvas.row(2 * half), canvas.row(2 * half + 1), canvas.width(), grainRow(half + 31),
                             picture.planes[1].data + half * picture.planes[1].stride,
                             picture.planes[2].data + half * picture.planes[2].stride);
        }
    });
}

}
