// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/ScalingKernels.h"

#include "render/AxisFilter.h"

#include <algorithm>
#include <limits>

namespace zumeta {

namespace {

int16_t saturated(int32_t value)
{
    return int16_t(
        std::clamp<int32_t>(value, std::numeric_limits<int16_t>::min(), std::numeric_limits<int16_t>::max()));
}

uint8_t toByte(int32_t fine)
{
    return uint8_t(std::clamp(fine >> kFineFractionBits, 0, 255));
}

/// (a * b) / 32768, rounded: the processors' own rounding multiplication.
int16_t roundedProduct(int32_t a, int32_t b)
{
    return int16_t((a * b + (1 << 14)) >> 15);
}

/// Samples are taken as (value - 128) * 256, so that a rounding multiplication gives coarse samples.
int16_t quickSample(const uint8_t* samples, const int16_t* weights, int taps)
{
    int32_t sum = 0;
    for (int t = 0; t < taps; ++t)
        sum += roundedProduct((samples[t] - 128) * 256, weights[t]);
    return int16_t(sum);
}

int16_t exactSample(const uint8_t* samples, const int16_t* weights, int taps)
{
    constexpr int kShift = kWeightBits - kCoarseFractionBits;
    int32_t sum = (1 << (kShift - 1)) - (128 << kWeightBits);
    for (int t = 0; t < taps; ++t)
        sum += samples[t] * weights[t];
    return saturated(sum >> kShift);
}

void horizontal8(const uint8_t* const* rows, int rowCount, const HorizontalTaps& taps, int16_t* const* coarse)
{
    const auto sample = taps.quickTaps > 0 ? quickSample : exactSample;
    for (int row = 0; row < rowCount; ++row) {
        for (int i = 0; i < taps.count; ++i)
            coarse[row][i] = sample(rows[row] + taps.first[i], taps.weights + ptrdiff_t(i) * taps.taps, taps.taps);
    }
}

void horizontal16(const uint8_t* const* rows, int rowCount, const HorizontalTaps& taps, int depth,
                  int16_t* const* coarse)
{
    const int shift = kWeightBits - kCoarseFractionBits + depth - 8;
    const int centre = 1 << (depth - 1);
    for (int row = 0; row < rowCount; ++row) {
        for (int i = 0; i < taps.count; ++i) {
            const uint16_t* const samples = reinterpret_cast<const uint16_t*>(rows[row]) + taps.first[i];
            const int16_t* const weights = taps.weights + ptrdiff_t(i) * taps.taps;
            int32_t sum = 1 << (shift - 1);
            for (int t = 0; t < taps.taps; ++t)
                sum += int16_t(samples[t] - centre) * weights[t]; // wraps on impossible samples, as vector code does
            coarse[row][i] = saturated(sum >> shift);
        }
    }
}

void widen8(const uint8_t* row, int count, int16_t* coarse)
{
    for (int i = 0; i < count; ++i)
        coarse[i] = int16_t((row[i] - 128) * (1 << kCoarseFractionBits));
}

void widen16(const uint16_t* row, int count, int depth, int16_t* coarse)
{
    const int centre = 1 << (depth - 1);
    for (int i = 0; i < count; ++i) {
        // One guard bit carries the rounding of 16-bit samples.
        const int32_t doubled = int16_t(row[i] - centre) * (1 << (16 - depth));
        coarse[i] = saturated((doubled + 1) >> 1);
    }
}

void quickVertical(const int16_t* const* rows, const int16_t* weights, const int16_t* bias, int count, uint8_t* out)
{
    for (int i = 0; i < count; ++i) {
        int32_t sum = bias[i % kBiasPeriod];
        for (int t = 0; t < 4; ++t)
            sum += roundedProduct(rows[t][i], weights[t]);
        out[i] = toByte(int16_t(sum));
    }
}

int16_t fineSample(const int16_t* const* rows, const int16_t* weights, int taps, int i)
{
    constexpr int kShift = kWeightBits + kCoarseFractionBits - kFineFractionBits;
    int32_t sum = 1 << (kShift - 1);
    for (int t = 0; t < taps; ++t)
        sum += rows[t][i] * weights[t];
    return saturated(sum >> kShift);
}

void exactVertical(const int16_t* const* rows, const int16_t* weights, int taps, const int16_t* bias, int count,
                   uint8_t* out)
{
    for (int i = 0; i < count; ++i)
        out[i] = toByte(saturated(fineSample(rows, weights, taps, i) + bias[i % kBiasPeriod]));
}

void fineVertical(const int16_t* const* rows, const int16_t* weights, int taps, int offset, int count, int16_t* fine)
{
    for (int i = 0; i < count; ++i)
        fine[i] = saturated(fineSample(rows, weights, taps, i) + offset);
}

void blend(int16_t* below, const int16_t* above, int opacity, int count)
{
    for (int i = 0; i < count; ++i)
        below[i] = saturated(below[i] + roundedProduct(saturated(above[i] - below[i]), opacity));
}

void finish(const int16_t* fine, const int16_t* bias, int count, uint8_t* out)
{
    for (int i = 0; i < count; ++i)
        out[i] = toByte(saturated(fine[i] + bias[i % kBiasPeriod]));
}

}

const ScalingKernels& portableKernels()
{
    static constexpr ScalingKernels kernels{horizontal8,   horizontal16, widen8, widen16, quickVertical,
                                            exactVertical, fineVertical, blend,  finish};
    return kernels;
}

const ScalingKernels& bestKernels()
{
#if defined(__x86_64__)
    static const bool hasAvx2 = __builtin_cpu_supports("avx2");
    if (hasAvx2)
        return avx2Kernels();
#endif
    return portableKernels();
}

}
