// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Included by code that is compiled for newer processors only: nothing but plain declarations may stand here, since
// an inline function compiled there could be linked into code that runs everywhere.
#include <cstddef>
#include <cstdint>

namespace zumeta {

/// Entries of a table from a gamma-coded value in 0..1 to light.
inline constexpr int kLightTableSize = 4096;
/// Entries of a table from the largest channel, coded for the screen, to the factor that brings it into range; the
/// last entry stands for kBrightestSignal.
inline constexpr int kToneTableSize = 4096;
inline constexpr float kBrightestSignal = 8;

/// From gamma-coded R'G'B' of one space to that of BT.709 SDR.
struct LightConversion {
    float redFromCr = 0; ///< R' = Y' + redFromCr * Cr
    float greenFromCb = 0;
    float greenFromCr = 0;
    float blueFromCb = 0;
    const float* light = nullptr; ///< 1 is the brightest light that SDR shows
    bool hasSystemGamma = false;  ///< light is the scene's and still to be raised to the screen's
    float systemGammaLess1 = 0;
    float systemGain = 0;
    float primaries[9] = {1, 0, 0, 0, 1, 0, 0, 0, 1}; ///< by rows, from the source's to those of BT.709
    const float* tone = nullptr;
};

/// Loops over rows of floats, compiled once for every processor and once for newer ones, with the same results: no
/// sum is fused, and whatever is not exact is written as the same sequence of operations.
struct ColourKernels {
    /// out = sample * scale + offset
    void (*load8)(const uint8_t* row, int count, float scale, float offset, float* out);
    void (*load16)(const uint16_t* row, int count, float scale, float offset, float* out);
    /// out = (a * weightA + b * weightB) * scale + offset, rounded and clamped to 16 bits.
    void (*storeMix)(const float* a, float weightA, const float* b, float weightB, float scale, float offset, int count,
                     uint16_t* out);
    /// a += (b - a) * fraction
    void (*lerp)(float* a, const float* b, float fraction, int count);
    /// `step` results per sample: result p of sample i lies `fractions[p]` of the way from sample i + offsets[p] to
    /// its successor. Rows are readable one sample before and two after.
    void (*upsample)(const float* row, int count, int step, const int* offsets, const float* fractions, float* out);
    /// out = (y + a * cb + b * cr) * scale + offset, rounded and clamped to 16 bits.
    void (*storeLuma)(const float* y, const float* cb, const float* cr, float a, float b, float scale, float offset,
                      int count, uint16_t* out);
    /// Y', Cb, Cr at the luma sites to 16-bit limited-range BT.709. The inputs are overwritten.
    void (*convertLight)(const LightConversion& conversion, float* y, float* cb, float* cr, int count, uint16_t* outY,
                         uint16_t* outCb, uint16_t* outCr);
};

const ColourKernels& portableColourKernels();
#if defined(__x86_64__)
const ColourKernels& avx2ColourKernels();
#endif
const ColourKernels& bestColourKernels();

}
