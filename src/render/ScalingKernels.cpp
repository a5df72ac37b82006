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
template <int knownTaps> void quickHorizontal(const uint8_t* row, const HorizontalTaps& taps, int16_t* coarse)
{
    const int tapCount = knownTaps > 0 ? knownTaps : taps.taps;
    const int16_t* weights = taps.weights;
    for (int i = 0; i < taps.count; ++i, weights += tapCount) {
        const uint8_t* const samples = row + taps.first[i];
        int32_t sum = 0;
        for (int t = 0; t < tapCount; ++t)
            sum += roundedProduct((samples[t] - 128) * 256, weights[t]);
        coarse[i] = int16_t(sum);
    }
}

void exactHorizontal(const uint8_t* row, const HorizontalTaps& taps, int16_t* coarse)
{
    constexpr int kShift = kWeightBits - kCoarseFractionBits;
    const int16_t* weights = taps.weights;
    for (int i = 0; i < taps.count; ++i, weights += taps.taps) {
        const uint8_t* const samples = row + taps.first[i];
        int32_t sum = (1 << (kShift - 1)) - (128 << kWeightBits);
        for (int t = 0; t < taps.taps; ++t)
            sum += samples[t] * weights[t];
        coarse[i] = saturated(sum >> kShift);
    }
}

void horizontal8(const uint8_t* const* rows, int rowCount, const HorizontalTaps& taps, int16_t* const* coarse)
{
    for (int row = 0; row < rowCount; ++row) {
        if (taps.quickTaps == 0) {
            exactHorizontal(rows[row], taps, coarse[row]);
            continue;
        }
        switch (taps.taps) {
        case 1:
            quickHorizontal<1>(rows[row], taps, coarse[row]);
            break;
        case 2:
            quickHorizontal<2>(rows[row], taps, coarse[row]);
            break;
        case 3:
            quickHorizontal<3>(rows[row], taps, coarse[row]);
            break;
        case 4:
            quickHorizontal<4>(rows[row], taps, coarse[row]);
            break;
        case 5:
            quickHorizontal<5>(rows[row], taps, coarse[row]);
            break;
        case 6:
            quickHorizontal<6>(rows[row], taps, coarse[row]);
            break;
        default:
            quickHorizontal<0>(rows[row], taps, coarse[row]);
            break;
        }
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

/// Columns that the vertical loops take at once, so that the compiler can keep their sums in vector registers.
constexpr int kBlock = 32;
static_assert(kBlock % kBiasPeriod == 0);

/// Calls sums(first column, columns, block of sums) for the blocks of a row and then store(column, sum).
template <class Sums, class Store> void inBlocks(int count, Sums sums, Store store)
{
    int32_t block[kBlock];
    for (int first = 0; first < count; first += kBlock) {
        const int columns = std::min(kBlock, count - first);
        sums(first, columns, block);
        for (int i = 0; i < columns; ++i)
            store(first + i, block[i]);
    }
}

void quickVertical(const int16_t* const* rows, const int16_t* weights, const int16_t* bias, int count, uint8_t* out)
{
    const auto sums = [=](int first, int columns, int32_t* block) {
        for (int i = 0; i < columns; ++i)
            block[i] = bias[i % kBiasPeriod];
        for (int t = 0; t < 4; ++t) {
            const int16_t* const row = rows[t] + first;
            for (int i = 0; i < columns; ++i)
                block[i] += roundedProduct(row[i], weights[t]);
        }
    };
    inBlocks(count, sums, [=](int i, int32_t sum) { out[i] = toByte(int16_t(sum)); });
}

/// Fine samples, to be saturated.
void sumExactly(const int16_t* const* rows, const int16_t* weights, int taps, int first, int columns, int32_t* block)
{
    constexpr int kShift = kWeightBits + kCoarseFractionBits - kFineFractionBits;
    std::fill_n(block, columns, 1 << (kShift - 1));
    for (int t = 0; t < taps; ++t) {
        const int16_t* const row = rows[t] + first;
        for (int i = 0; i < columns; ++i)
            block[i] += row[i] * weights[t];
    }
    for (int i = 0; i < columns; ++i)
        block[i] = saturated(block[i] >> kShift);
}

void exactVertical(const int16_t* const* rows, const int16_t* weights, int taps, const int16_t* bias, int count,
                   uint8_t* out)
{
    const auto sums = [=](int first, int columns, int32_t* block) {
        sumExactly(rows, weights, taps, first, columns, block);
    };
    inBlocks(count, sums, [=](int i, int32_t sum) { out[i] = toByte(saturated(sum + bias[i % kBiasPeriod])); });
}

void fineVertical(const int16_t* const* rows, const int16_t* weights, int taps, int offset, int count, int16_t* fine)
{
    const auto sums = [=](int first, int columns, int32_t* block) {
        sumExactly(rows, weights, taps, first, columns, block);
    };
    inBlocks(count, sums, [=](int i, int32_t sum) { fine[i] = saturated(sum + offset); });
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
