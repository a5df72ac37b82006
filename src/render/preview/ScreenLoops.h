// SPDX-License-Identifier: GPL-3.0-or-later
// The loops themselves, for each file that compiles them for its own processors.
#pragma once
#include "render/preview/ScreenKernels.h"

#include <algorithm>
#include <cstddef>

namespace zumeta {

namespace {

constexpr int kFractionBits = 16;
/// From limited range to full, and from the scale of spread chroma.
constexpr double kLumaGain = 255.0 / 219 * (1 << kFractionBits);
constexpr double kChromaGain = 255.0 / 224 * (1 << kFractionBits) / 8;
/// Shares of red and blue in the luma of BT.709.
constexpr double kRed = 0.2126;
constexpr double kBlue = 0.0722;
constexpr double kGreen = 1 - kRed - kBlue;

constexpr int rounded(double value)
{
    return int(2 * value + 1) / 2;
}

constexpr int kFromY = rounded(kLumaGain);
constexpr int kRedFromCr = rounded(2 * (1 - kRed) * kChromaGain);
constexpr int kGreenFromCb = rounded(2 * (1 - kBlue) * kBlue / kGreen * kChromaGain);
constexpr int kGreenFromCr = rounded(2 * (1 - kRed) * kRed / kGreen * kChromaGain);
constexpr int kBlueFromCb = rounded(2 * (1 - kBlue) * kChromaGain);

void mixRows(const uint8_t* near, const uint8_t* far, int count, int16_t* out)
{
    for (int i = 0; i < count; ++i)
        out[i] = int16_t(3 * near[i] + far[i] - 4 * 128);
}

void spread(const int16_t* mixed, int count, int16_t* out)
{
    for (ptrdiff_t i = 0; i < count; ++i) {
        out[2 * i] = int16_t(2 * mixed[i]);
        out[2 * i + 1] = int16_t(mixed[i] + mixed[i + 1]);
    }
}

inline uint32_t screenSample(int value)
{
    return uint32_t(std::clamp(value >> kFractionBits, 0, 255));
}

void toScreen(const uint8_t* y, const int16_t* cb, const int16_t* cr, int count, uint32_t* out)
{
    for (int i = 0; i < count; ++i) {
        const int luma = kFromY * (y[i] - 16) + (1 << (kFractionBits - 1));
        const uint32_t red = screenSample(luma + kRedFromCr * cr[i]);
        const uint32_t green = screenSample(luma - kGreenFromCb * cb[i] - kGreenFromCr * cr[i]);
        const uint32_t blue = screenSample(luma + kBlueFromCb * cb[i]);
        out[i] = 0xff000000U | red << 16 | green << 8 | blue;
    }
}

constexpr ScreenKernels kScreenKernels{mixRows, spread, toScreen};

}

}
