// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <cstdint>

namespace zumeta {

/// The loops of the conversion for the screen, compiled once for every processor and once for newer ones; whole
/// numbers throughout, so the pictures are the same to the bit.
struct ScreenKernels {
    /// One row of chroma between two: three parts of the near one and one of the far one, less the grey: 4 times the
    /// samples' scale.
    void (*mixRows)(const uint8_t* near, const uint8_t* far, int count, int16_t* out);
    /// Chroma at every luma site of a row, for samples sited left: 8 times the samples' scale. One sample more is read
    /// than `count`; 2 * count are written.
    void (*spread)(const int16_t* mixed, int count, int16_t* out);
    /// Luma and spread chroma to 0xffRRGGBB.
    void (*toScreen)(const uint8_t* y, const int16_t* cb, const int16_t* cr, int count, uint32_t* out);
};

const ScreenKernels& portableScreenKernels();
#if defined(__x86_64__)
const ScreenKernels& avx2ScreenKernels();
#endif
const ScreenKernels& bestScreenKernels();

}
