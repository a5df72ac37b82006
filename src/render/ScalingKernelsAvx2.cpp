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

/// A hint, which may lead anywhere.
void fetch(const uint8_t* from, ptrdiff_t ahead)
{
    _mm_prefetch(reinterpret_cast<const char*>(reinterpret_cast<uintptr_t>(from) + uintptr_t(ahead)), _MM_HINT_T0);
}

/// Eight results' samples: the first four read from the run at base[0], the others from the one at base[step].
template <int bytesPerSample> __m256i laneSamples(const uint8_t* row, const int32_t* base, int step, __m256i centre)
{
    const __m128i low = load16(row + ptrdiff_t(base[0]) * bytesPerSample);
    const __m128i high = load16(row + ptrdiff_t(base[step]) * bytesPerSample);
    const __m256i samples = _mm256_inserti128_si256(_mm256_castsi128_si256(low), high, 1);
    if constexpr (bytesPerSample == 1)
        return samples;
    else
        return _mm256_sub_epi16(samples, centre);
}

struct HorizontalConstants {
    __m256i centre;
    __m256i bias;
    __m128i shift;
};

/// `sharedPairs`: number of pairs where they share a run, else 0.
template <int bytesPerSample, int sharedPairs, int rowCount>
void horizontalLanes(const uint8_t* const* rows, const HorizontalTaps& taps, const HorizontalConstants& constants,
                     int16_t* const* coarse)
{
    const int pairs = sharedPairs > 0 ? sharedPairs : taps.lanePairs;
    const uint8_t* lanes = taps.lanes;
    const int32_t* base = taps.laneBase;
    for (int i = 0; i < taps.count; i += 8) {
        __m256i sums[rowCount];
        __m256i samples[rowCount];
        for (int r = 0; r < rowCount; ++r) {
            sums[r] = constants.bias;
            if constexpr (sharedPairs > 0)
                samples[r] = laneSamples<bytesPerSample>(rows[r], base, 1, constants.centre);
            fetch(rows[r] + ptrdiff_t(base[0]) * bytesPerSample, taps.ahead);
        }
        for (int pair = 0; pair < pairs; ++pair, lanes += 64) {
            const __m256i picks = load32(lanes);
            const __m256i weights = load32(lanes + 32);
            for (int r = 0; r < rowCount; ++r) {
                if constexpr (sharedPairs == 0)
                    samples[r] = laneSamples<bytesPerSample>(rows[r], base + pair, pairs, constants.centre);
                const __m256i picked = _mm256_shuffle_epi8(samples[r], picks);
                sums[r] = _mm256_add_epi32(sums[r], _mm256_madd_epi16(picked, weights));
            }
        }
        base += sharedPairs > 0 ? 2 : 2 * pairs;
        for (int r = 0; r < rowCount; ++r) {
            const __m256i shifted = _mm256_sra_epi32(sums[r], constants.shift);
            _mm_storeu_si128(reinterpret_cast<__m128i*>(coarse[r] + i),
                             _mm_packs_epi32(_mm256_castsi256_si128(shifted), _mm256_extracti128_si256(shifted, 1)));
        }
    }
}

/// Sixteen results at once, eight from each run.
template <int quickTaps, int rowCount>
void horizontalQuick(const uint8_t* const* rows, const HorizontalTaps& taps, int16_t* const* coarse)
{
    const __m256i centre = _mm256_set1_epi8(int8_t(-128));
    const uint8_t* lanes = taps.lanes;
    const int32_t* base = taps.laneBase;
    for (int i = 0; i < taps.count; i += 16, base += 2) {
        __m256i samples[rowCount];
        __m256i sums[rowCount];
        for (int r = 0; r < rowCount; ++r) {
            samples[r] = _mm256_xor_si256(laneSamples<1>(rows[r], base, 1, centre), centre);
            fetch(rows[r] + base[0], taps.ahead);
        }
        for (int tap = 0; tap < quickTaps; ++tap, lanes += 64) {
            const __m256i picks = load32(lanes);
            const __m256i weights = load32(lanes + 32);
            for (int r = 0; r < rowCount; ++r) {
                const __m256i product = _mm256_mulhrs_epi16(_mm256_shuffle_epi8(samples[r], picks), weights);
                sums[r] = tap == 0 ? product : _mm256_add_epi16(sums[r], product);
            }
        }
        for (int r = 0; r < rowCount; ++r)
            store32(coarse[r] + i, sums[r]);
    }
}

template <int rowCount> void quickRows(const uint8_t* const* rows, const HorizontalTaps& taps, int16_t* const* coarse)
{
    switch (taps.quickTaps) {
    case 1:
        horizontalQuick<1, rowCount>(rows, taps, coarse);
        break;
    case 2:
        horizontalQuick<2, rowCount>(rows, taps, coarse);
        break;
    case 3:
        horizontalQuick<3, rowCount>(rows, taps, coarse);
        break;
    case 4:
        horizontalQuick<4, rowCount>(rows, taps, coarse);
        break;
    case 5:
        horizontalQuick<5, rowCount>(rows, taps, coarse);
        break;
    default:
        horizontalQuick<6, rowCount>(rows, taps, coarse);
        break;
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

/// Any number of taps, anywhere.
template <int bytesPerSample>
void horizontalRuns(const uint8_t* row, const HorizontalTaps& taps, const HorizontalConstants& constants,
                    int16_t* coarse)
{
    const __m128i centre = _mm256_castsi256_si128(constants.centre);
    const __m128i bias = _mm256_castsi256_si128(constants.bias);
    const int16_t* weights = taps.weights;
    for (int i = 0; i < taps.count; i += 4) {
        __m128i sums[4];
        for (int j = 0; j < 4; ++j, weights += taps.taps)
            sums[j] = runSum<bytesPerSample>(row, taps.first[i + j], weights, taps.taps, centre);
        const __m128i all = _mm_hadd_epi32(_mm_hadd_epi32(sums[0], sums[1]), _mm_hadd_epi32(sums[2], sums[3]));
        const __m128i shifted = _mm_sra_epi32(_mm_add_epi32(all, bias), constants.shift);
        _mm_storel_epi64(reinterpret_cast<__m128i*>(coarse + i), _mm_packs_epi32(shifted, shifted));
    }
}

template <int bytesPerSample, int rowCount>
void horizontalRows(const uint8_t* const* rows, const HorizontalTaps& taps, const HorizontalConstants& constants,
                    int16_t* const* coarse)
{
    if (taps.lanePairs == 0) {
        for (int r = 0; r < rowCount; ++r)
            horizontalRuns<bytesPerSample>(rows[r], taps, constants, coarse[r]);
        return;
    }
    switch (taps.sharesRun ? taps.lanePairs : 0) {
    case 1:
        horizontalLanes<bytesPerSample, 1, rowCount>(rows, taps, constants, coarse);
        break;
    case 2:
        horizontalLanes<bytesPerSample, 2, rowCount>(rows, taps, constants, coarse);
        break;
    case 3:
        horizontalLanes<bytesPerSample, 3, rowCount>(rows, taps, constants, coarse);
        break;
    case 4:
        horizontalLanes<bytesPerSample, 4, rowCount>(rows, taps, constants, coarse);
        break;
    default:
        horizontalLanes<bytesPerSample, 0, rowCount>(rows, taps, constants, coarse);
        break;
    }
}

template <int bytesPerSample>
void horizontal(const uint8_t* const* rows, int rowCount, const HorizontalTaps& taps, int centre, int bias, int shift,
                int16_t* const* coarse)
{
    const HorizontalConstants constants{_mm256_set1_epi16(int16_t(centre)), _mm256_set1_epi32(bias),
                                        _mm_cvtsi32_si128(shift)};
    if (rowCount == kRowsAtOnce) {
        horizontalRows<bytesPerSample, kRowsAtOnce>(rows, taps, constants, coarse);
        return;
    }
    for (int r = 0; r < rowCount; ++r)
        horizontalRows<bytesPerSample, 1>(rows + r, taps, constants, coarse + r);
}

void horizontal8(const uint8_t* const* rows, int rowCount, const HorizontalTaps& taps, int16_t* const* coarse)
{
    if (taps.quickTaps > 0) {
        int r = 0;
        for (; r + kRowsAtOnce <= rowCount; r += kRowsAtOnce)
            quickRows<kRowsAtOnce>(rows + r, taps, coarse + r);
        for (; r < rowCount; ++r)
            quickRows<1>(rows + r, taps, coarse + r);
        return;
    }
    // The weights add up to one exactly, so 128 can be taken off the sum instead of off every sample.
    constexpr int kShift = kWeightBits - kCoarseFractionBits;
    horizontal<1>(rows, rowCount, taps, 0, (1 << (kShift - 1)) - (128 << kWeightBits), kShift, coarse);
}

void horizontal16(const uint8_t* const* rows, int rowCount, const HorizontalTaps& taps, int depth,
                  int16_t* const* coarse)
{
    const int shift = kWeightBits - kCoarseFractionBits + depth - 8;
    horizontal<2>(rows, rowCount, taps, 1 << (depth - 1), 1 << (shift - 1), shift, coarse);
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
template <class Fine> void storeBytes(int count, uint8_t* out, Fine fine)
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
