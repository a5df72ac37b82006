// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "render/AxisFilter.h"
#include "render/ScalingKernels.h"

#include <vector>

namespace zumeta {

/// The horizontal pass over a range of columns, laid out as the kernels read it.
class HorizontalTable {
public:
    /// `sourceWidth` samples of `bytesPerSample` in a row.
    HorizontalTable(const AxisFilter& filter, int sourceWidth, int bytesPerSample);

    int begin() const { return m_begin; }
    int count() const { return m_count; }
    HorizontalTaps taps() const;
    /// Results that a kernel may store.
    int paddedCount() const;
    /// Samples that a row must have readable; where that is more than the picture has, rows are copied first.
    int readableSamples() const { return m_readable; }

private:
    void layOutLanes(int bytesPerSample);

    int m_begin = 0;
    int m_count = 0;
    int m_taps = 0;
    int m_readable = 0;
    std::vector<int32_t> m_first;
    std::vector<int16_t> m_weights;
    int m_lanePairs = 0;
    std::vector<int32_t> m_laneBase;
    std::vector<uint8_t> m_lanes;
};

}
