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
    /// How results are grouped so that vector code reads their samples from runs of 16 bytes.
    struct Grouping {
        int resultsInRun; ///< that share one run
        int tapsInRun;
        int tapsInBlock; ///< that one block of picks and weights holds per result
        int blocks;      ///< per result
        bool sharesRun;  ///< over all blocks
    };
    bool chooseBases(const Grouping& grouping, int runSamples);
    void layOutBlocks(const Grouping& grouping, int bytesPerSample);
    bool layOutLanes(int bytesPerSample);
    void take(const AxisFilter& filter);

    int m_begin = 0;
    int m_count = 0;
    int m_taps = 0;
    int m_readable = 0;
    std::vector<int32_t> m_first;
    std::vector<int16_t> m_weights;
    std::vector<int32_t> m_low; ///< per result: first sample with a weight
    int m_quickTaps = 0;
    int m_lanePairs = 0;
    bool m_sharesRun = false;
    std::vector<int32_t> m_laneBase;
    std::vector<uint8_t> m_lanes;
};

}
