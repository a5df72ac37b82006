// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Included by code that is compiled for newer processors only: nothing but plain declarations may stand here, since
// an inline function compiled there could be linked into code that runs everywhere.
#include <cstddef>
#include <cstdint>

namespace zumeta {

/// Scaling works on 16-bit samples that stand for (value - 128) with this many fraction bits between the horizontal
/// and the vertical pass, `value` being on the 8-bit scale ...
inline constexpr int kCoarseFractionBits = 7;
/// ... and with this many after the vertical pass, where layers are blended.
inline constexpr int kFineFractionBits = 6;
/// To be added to fine samples before they are cut to bytes; rounding or dither comes on top.
inline constexpr int kFineCentre = 128 << kFineFractionBits;
/// Bias patterns repeat after so many columns.
inline constexpr int kBiasPeriod = 8;
inline constexpr int kRowsAtOnce = 4;
/// Opacities are fractions of this.
inline constexpr int kOpacityOne = 1 << 15;

/// The horizontal pass of a range of columns; points into a HorizontalTable. Arrays are padded to whole groups of 16
/// results, so kernels may compute, and store, that many more.
struct HorizontalTaps {
    int count = 0;
    int taps = 0;
    const int32_t* first = nullptr;   ///< per result: its first source sample
    const int16_t* weights = nullptr; ///< per result: `taps` weights
    /// 8 bit only: each product is rounded by itself, to 1/256 of a code; otherwise they are summed first. The number
    /// of taps where eight neighbouring results read from one run of 16 bytes, else 0.
    int quickTaps = 0;
    /// Where four neighbouring results read a pair of taps from one run of 16 bytes: the number of pairs, else 0.
    int lanePairs = 0;
    bool sharesRun = false; ///< all pairs of four results read from the same run
    /// First source sample of the run per eight results (quick), per four, or per four and pair.
    const int32_t* laneBase = nullptr;
    /// Per sixteen results and tap (quick), or per eight and pair: 32 bytes that pick the samples, then 16 weights.
    const uint8_t* lanes = nullptr;
    /// Bytes from a row to the one that comes next in its place: fetched while this one is worked on, since the rows of
    /// a picture are too short and too many for the processor to foresee. 0 to fetch nothing.
    ptrdiff_t ahead = 0;
};

/// The inner loops. All variants give the same bits.
struct ScalingKernels {
    /// Up to kRowsAtOnce rows in one go: reading the table costs as much as reading a row.
    void (*horizontal8)(const uint8_t* const* rows, int rowCount, const HorizontalTaps& taps, int16_t* const* coarse);
    void (*horizontal16)(const uint8_t* const* rows, int rowCount, const HorizontalTaps& taps, int depth,
                         int16_t* const* coarse);
    /// Samples taken as they are.
    void (*widen8)(const uint8_t* row, int count, int16_t* coarse);
    void (*widen16)(const uint16_t* row, int count, int depth, int16_t* coarse);

    /// Four rows, each product rounded by itself: fast, within 1/32 of a code. `bias` holds kBiasPeriod values.
    void (*quickVertical)(const int16_t* const* rows, const int16_t* weights, const int16_t* bias, int count,
                          uint8_t* out);
    /// An even number of rows, rounded once.
    void (*exactVertical)(const int16_t* const* rows, const int16_t* weights, int taps, const int16_t* bias, int count,
                          uint8_t* out);
    void (*fineVertical)(const int16_t* const* rows, const int16_t* weights, int taps, int offset, int count,
                         int16_t* fine);
    /// below += (above - below) * opacity / kOpacityOne, with opacity under kOpacityOne.
    void (*blend)(int16_t* below, const int16_t* above, int opacity, int count);
    void (*finish)(const int16_t* fine, const int16_t* bias, int count, uint8_t* out);
};

const ScalingKernels& portableKernels();
#if defined(__x86_64__)
const ScalingKernels& avx2Kernels();
#endif
/// The best set for this processor.
const ScalingKernels& bestKernels();

}
