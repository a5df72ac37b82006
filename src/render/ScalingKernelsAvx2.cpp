// SPDX-License-Identifier: GPL-3.0-or-later
// Compiled for AVX2: reached only through avx2Kernels(). Includes nothing with inline functions of its own.
#include "render/ScalingKernels.h"

#include <immintrin.h>

namespace zumeta {

namespace {

constexpr int kWeightBits = 14;

__m128i load16(const void* from)
{
    return _mm_loadu_si128(static_cast<const __m128i*>(from));
}

__m256i load32(const void* from)
{
    return _mm256_loadu_si256(static_cast<const __m256i*>(from));
}

void store32(void* to, __m256i value)
{
    _mm256_storeu_si256(static_cast<__m256i*>(to), value);
}

/// The first `count` of 32 bytes, nothing past them.
void storeTail(uint8_t* to, __m256i value, int count)
{
    alignas(32) uint8_t bytes[32];
    store32(bytes, value);
    for (int i = 0; i < count; ++i)
        to[i] = bytes[i];
}

// ---- horizontal ------------------------------------------------------------------------------------------------

/// Eight results, the first four from the run at base[0], the others from the one at base[1].
template <int bytesPerSample, int pairs>
__m256i laneSums(const uint8_t* row, const int32_t* base, const uint8_t*& lanes, __m256i centre)
{
    const __m128i low = load16(row + ptrdiff_t(base[0]) * bytesPerSample);
    const __m128i high = load16(row + ptrdiff_t(base[1]) * bytesPerSample);
    const __m256i samples = _mm256_sub_epi16(_mm256_inserti128_si256(_mm256_castsi128_si256(low), high, 1), centre);
    __m256i sum = _mm256_madd_epi16(_mm256_shuffle_epi8(samples, load32(lanes)), load32(lanes + 32));
    lanes += 64;
    for (int pair = 1; pair < pairs; ++pair) {
        sum = _mm256_add_epi32(sum, _mm256_madd_epi16(_mm256_shuffle_epi8(samples, load32(lanes)), load32(lanes + 32)));
        lanes += 64;
    }
    return sum;
}

template <int bytesPerSample, int pairs>
void horizontalLanes(const uint8_t* row, const HorizontalTaps& taps, __m256i centre, __m256i bias, __m128i shift,
                     int16_t* coarse)
{
    const uint8_t* lanes = taps.lanes;
    const int32_t* base = taps.laneBase;
    for (int i = 0; i < taps.count; i += 16, base += 4) {
        const __m256i a = _mm256_add_epi32(laneSums<bytesPerSample, pairs>(row, base, lanes, centre), bias);
        const __m256i b = _mm256_add_epi32(laneSums<bytesPerSample, pairs>(row, base + 2, lanes, centre), bias);
        const __m256i packed = _mm256_packs_epi32(_mm256_sra_epi32(a, shift), _mm256_sra_epi32(b, shift));
        store32(coarse + i, _mm256_permute4x64_epi64(packed, 0xD8));
    }
}

template <int bytesPerSample>
__m128i runSum(const uint8_t* row, int first, const int16_t* weights, int taps, __m128i centre)
{
    __m128i sum = _mm_setzero_si128();
    for (int t = 0; t < taps; t += 8) {
        const uint8_t* const from = row + ptrdiff_t(first + t) * bytesPerSample;
        __m128i samples;
        if constexpr (bytesPerSample == 1)
            samples = _mm_cvtepu8_epi16(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(from)));
        else
            samples = _mm_sub_epi16(load16(from), centre);
        sum = _mm_add_epi32(sum, _mm_madd_epi16(samples, load16(weights + t)));
    }
    return sum;
}

template <int bytesPerSample>
void horizontalRuns(const uint8_t* row, const HorizontalTaps& taps, __m256i centre, __m256i bias, __m128i shift,
                    int16_t* coarse)
{
    const __m128i narrowCentre = _mm256_castsi256_si128(centre);
    const __m128i narrowBias = _mm256_castsi256_si128(bias);
    const int16_t* weights = taps.weights;
    for (int i = 0; i < taps.count; i += 4) {
        __m128i sums[4];
        for (int j = 0; j < 4; ++j, weights += taps.taps)
            sums[j] = runSum<bytesPerSample>(row, taps.first[i + j], weights, taps.taps, narrowCentre);
        const __m128i all = _mm_hadd_epi32(_mm_hadd_epi32(sums[0], sums[1]), _mm_hadd_epi32(sums[2], sums[3]));
        const __m128i shifted = _mm_sra_epi32(_mm_add_epi32(all, narrowBias), shift);
        _mm_storel_epi64(reinterpret_cast<__m128i*>(coarse + i), _mm_packs_epi32(shifted, shifted));
    }
}

template <int bytesPerSample>
void horizontal(const uint8_t* row, const HorizontalTaps& taps, int centre, int bias, int shift, int16_t* coarse)
{
    const __m256i centres = _mm256_set1_epi16(int16_t(centre));
    const __m256i biases = _mm256_set1_epi32(bias);
    const __m128i shifts = _mm_cvtsi32_si128(shift);
    switch (taps.lanePairs) {
    case 1:
        horizontalLanes<bytesPerSample, 1>(row, taps, centres, biases, shifts, coarse);
        break;
    case 2:
        horizontalLanes<bytesPerSample, 2>(row, taps, centres, biases, shifts, coarse);
        break;
    case 3:
        horizontalLanes<bytesPerSample, 3>(row, taps, centres, biases, shifts, coarse);
        break;
    case 4:
        horizontalLanes<bytesPerSample, 4>(row, taps, centres, biases, shifts, coarse);
        break;
    default:
        horizontalRuns<bytesPerSample>(row, taps, centres, biases, shifts, coarse);
        break;
    }
}

void horizontal8(const uint8_t* row, const HorizontalTaps& taps, int16_t* coarse)
{
    // The weights add up to one exactly, so 128 can be taken off the sum instead of off every sample.
    constexpr int kShift = kWeightBits - kCoarseFractionBits;
    horizontal<1>(row, taps, 0, (1 << (kShift - 1)) - (128 << kWeightBits), kShift, coarse);
}

void horizontal16(const uint16_t* row, const HorizontalTaps& taps, int depth, int16_t* coarse)
{
    const int shift = kWeightBits - kCoarseFractionBits + depth - 8;
    horizontal<2>(reinterpret_cast<const uint8_t*>(row), taps, 1 << (depth - 1), 1 << (shift - 1), shift, coarse);
}

void widen8(const uint8_t* row, int count, int16_t* coarse)
{
    const __m256i centre = _mm256_set1_epi16(128);
    int i = 0;
    for (; i + 16 <= count; i += 16) {
        const __m256i samples = _mm256_cvtepu8_epi16(load16(row + i));
        store32(coarse + i, _mm256_slli_epi16(_mm256_sub_epi16(samples, centre), kCoarseFractionBits));
    }
    for (; i < count; ++i)
        coarse[i] = int16_t((row[i] - 128) * (1 << kCoarseFractionBits));
}

void widen16(const uint16_t* row, int count, int depth, int16_t* coarse)
{
    if (depth == 16) { // rounded: (c + 1) >> 1 without overflow
        for (int i = 0; i < count; ++i) {
            const int32_t centred = int16_t(row[i] - (1 << 15));
            coarse[i] = int16_t((centred + 1) >> 1);
        }
        return;
    }
    const int32_t factor = 1 << (15 - depth);
    for (int i = 0; i < count; ++i) {
        const int32_t wide = int16_t(row[i] - (1 << (depth - 1))) * factor;
        coarse[i] = int16_t(wide < -32768 ? -32768 : wide > 32767 ? 32767 : wide);
    }
}

// ---- vertical --------------------------------------------------------------------------------------------------

/// Bytes of 32 columns from two registers of fine samples that already hold their bias.
__m256i bytesOf(__m256i first, __m256i second)
{
    const __m256i packed =
        _mm256_packus_epi16(_mm256_srai_epi16(first, kFineFractionBits), _mm256_srai_epi16(second, kFineFractionBits));
    return _mm256_permute4x64_epi64(packed, 0xD8);
}

/// Calls fine(column) for two registers of 16 columns at a time and stores their bytes.
template <class Fine>
void storeBytes(int count, uint8_t* out, Fine fine)
{
    int i = 0;
    for (; i + 32 <= count; i += 32)
        store32(out + i, bytesOf(fine(i), fine(i + 16)));
    if (i < count)
        storeTail(out + i, bytesOf(fine(i), fine(i + 16)), count - i);
}

__m256i repeatedBias(const int16_t* bias)
{
    return _mm256_broadcastsi128_si256(load16(bias));
}

void quickVertical(const int16_t* const* rows, const int16_t* weights, const int16_t* bias, int count, uint8_t* out)
{
    const int16_t* const r0 = rows[0];
    const int16_t* const r1 = rows[1];
    const int16_t* const r2 = rows[2];
    const int16_t* const r3 = rows[3];
    const __m256i w0 = _mm256_set1_epi16(weights[0]);
    const __m256i w1 = _mm256_set1_epi16(weights[1]);
    const __m256i w2 = _mm256_set1_epi16(weights[2]);
    const __m256i w3 = _mm256_set1_epi16(weights[3]);
    const __m256i biases = repeatedBias(bias);
    storeBytes(count, out, [&](int i) {
        const __m256i outer =
            _mm256_add_epi16(_mm256_mulhrs_epi16(load32(r0 + i), w0), _mm256_mulhrs_epi16(load32(r3 + i), w3));
        const __m256i inner =
            _mm256_add_epi16(_mm256_mulhrs_epi16(load32(r1 + i), w1), _mm256_mulhrs_epi16(load32(r2 + i), w2));
        return _mm256_add_epi16(_mm256_add_epi16(outer, inner), biases);
    });
}

/// Fine samples of 16 columns, summed exactly and rounded once.
__m256i fineColumns(const int16_t* const* rows, const int16_t* weights, int taps, int i)
{
    constexpr int kShift = kWeightBits + kCoarseFractionBits - kFineFractionBits;
    __m256i low = _mm256_set1_epi32(1 << (kShift - 1));
    __m256i high = low;
    for (int t = 0; t < taps; t += 2) {
        const uint32_t pair = uint32_t(uint16_t(weights[t])) | uint32_t(uint16_t(weights[t + 1])) << 16;
        const __m256i pairs = _mm256_set1_epi32(int(pair));
        const __m256i a = load32(rows[t] + i);
        const __m256i b = load32(rows[t + 1] + i);
        low = _mm256_add_epi32(low, _mm256_madd_epi16(_mm256_unpacklo_epi16(a, b), pairs));
        high = _mm256_add_epi32(high, _mm256_madd_epi16(_mm256_unpackhi_epi16(a, b), pairs));
    }
    return _mm256_packs_epi32(_mm256_srai_epi32(low, kShift), _mm256_srai_epi32(high, kShift));
}

void exactVertical(const int16_t* const* rows, const int16_t* weights, int taps, const int16_t* bias, int count,
                   uint8_t* out)
{
    const __m256i biases = repeatedBias(bias);
    storeBytes(count, out, [&](int i) { return _mm256_adds_epi16(fineColumns(rows, weights, taps, i), biases); });
}

void fineVertical(const int16_t* const* rows, const int16_t* weights, int taps, int offset, int count, int16_t* fine)
{
    const __m256i offsets = _mm256_set1_epi16(int16_t(offset));
    for (int i = 0; i < count; i += 16)
        store32(fine + i, _mm256_adds_epi16(fineColumns(rows, weights, taps, i), offsets));
}

void blend(int16_t* below, const int16_t* above, int opacity, int count)
{
    const __m256i opacities = _mm256_set1_epi16(int16_t(opacity));
    int i = 0;
    for (; i + 16 <= count; i += 16) {
        const __m256i under = load32(below + i);
        const __m256i difference = _mm256_subs_epi16(load32(above + i), under);
        store32(below + i, _mm256_adds_epi16(under, _mm256_mulhrs_epi16(difference, opacities)));
    }
    for (; i < count; ++i) {
        const __m128i under = _mm_cvtsi32_si128(below[i]);
        const __m128i difference = _mm_subs_epi16(_mm_cvtsi32_si128(above[i]), under);
        const __m128i moved = _mm_mulhrs_epi16(difference, _mm256_castsi256_si128(opacities));
        below[i] = int16_t(_mm_extract_epi16(_mm_adds_epi16(under, moved), 0));
    }
}

void finish(const int16_t* fine, const int16_t* bias, int count, uint8_t* out)
{
    const __m256i biases = repeatedBias(bias);
    storeBytes(count, out, [&](int i) { return _mm256_adds_epi16(load32(fine + i), biases); });
}

}

const ScalingKernels& avx2Kernels()
{
    static constexpr ScalingKernels kernels{horizontal8,   horizontal16, widen8, widen16, quickVertical,
                                            exactVertical, fineVertical, blend,  finish};
    return kernels;
}

}
