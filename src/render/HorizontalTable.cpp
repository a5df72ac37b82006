// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/HorizontalTable.h"

#include <algorithm>
#include <cstring>

namespace zumeta {

namespace {

constexpr int kGroup = 16;          // results
constexpr int kRunBytes = 16;       // of source samples that four results share
constexpr int kRunTaps = 8;         // taps come in such runs where four results share nothing
constexpr int kMostSharedPairs = 4; // that the kernels know
constexpr int kMostLanePairs = 16;  // more taps are as fast one result at a time

int roundedUp(int value, int multiple)
{
    return (value + multiple - 1) / multiple * multiple;
}

}

HorizontalTable::HorizontalTable(const AxisFilter& filter, int sourceWidth, int bytesPerSample)
    : m_begin(filter.begin)
    , m_count(filter.count)
{
    const int paddedTaps = roundedUp(filter.taps, kRunTaps);
    m_readable = std::max({sourceWidth, paddedTaps, kRunBytes});
    const AxisFilter padded = filter.paddedTo(kRunTaps, m_readable);
    m_taps = padded.taps;
    m_first = padded.first;
    m_weights = padded.weights;
    // The last result stands for those that fill up the last group.
    while (int(m_first.size()) < paddedCount()) {
        m_first.push_back(m_first.back());
        m_weights.insert(m_weights.end(), m_weights.end() - m_taps, m_weights.end());
    }
    layOutLanes(bytesPerSample);
}

int HorizontalTable::paddedCount() const
{
    return roundedUp(m_count, kGroup);
}

HorizontalTaps HorizontalTable::taps() const
{
    HorizontalTaps taps;
    taps.count = m_count;
    taps.taps = m_taps;
    taps.first = m_first.data();
    taps.weights = m_weights.data();
    taps.lanePairs = m_lanePairs;
    taps.sharesRun = m_sharesRun;
    taps.laneBase = m_laneBase.data();
    taps.lanes = m_lanes.data();
    return taps;
}

/// Where the runs of each four results start; false where a run does not hold all that it should.
bool HorizontalTable::chooseBases(int runSamples, int pairs, bool shared)
{
    m_laneBase.clear();
    for (size_t i = 0; i < m_low.size(); i += 4) {
        const auto four = m_low.begin() + ptrdiff_t(i);
        const int lowest = *std::min_element(four, four + 4);
        const int highest = *std::max_element(four, four + 4);
        const int tapsInRun = shared ? 2 * pairs : 2;
        // Only as many taps as there are samples with a weight; what lies past the row has none.
        for (int pair = 0; pair < (shared ? 1 : pairs); ++pair) {
            const int base = std::min(lowest + 2 * pair, m_readable - runSamples);
            const int last = std::min(highest + 2 * pair + tapsInRun, m_readable) - 1;
            if (last - base >= runSamples)
                return false;
            m_laneBase.push_back(base);
        }
    }
    return true;
}

void HorizontalTable::layOutLanes(int bytesPerSample)
{
    int pairs = 1;
    m_low.resize(m_first.size());
    for (size_t i = 0; i < m_first.size(); ++i) {
        const int16_t* const weights = m_weights.data() + i * size_t(m_taps);
        int from = 0;
        int to = m_taps;
        while (from < to - 1 && weights[from] == 0)
            ++from;
        while (to - 1 > from && weights[to - 1] == 0)
            --to;
        m_low[i] = m_first[i] + from;
        pairs = std::max(pairs, (to - from + 1) / 2);
    }
    const int runSamples = kRunBytes / bytesPerSample;
    if (pairs <= kMostSharedPairs && chooseBases(runSamples, pairs, true))
        m_sharesRun = true;
    else if (pairs > kMostLanePairs || !chooseBases(runSamples, pairs, false))
        return;
    m_lanePairs = pairs;

    constexpr size_t kBlock = 64; // 32 bytes of picks, 16 weights
    m_lanes.assign(m_first.size() / 8 * size_t(pairs) * kBlock, 0);
    for (size_t i = 0; i < m_first.size(); ++i) {
        for (int t = 0; t < 2 * pairs; ++t) {
            const size_t pair = size_t(t / 2);
            uint8_t* const block = m_lanes.data() + ((i / 8) * size_t(pairs) + pair) * kBlock;
            const size_t slot = (i % 8) * 2 + size_t(t % 2); // of 16
            const int index = m_low[i] - m_first[i] + t;
            const int16_t weight = index < m_taps ? m_weights[i * size_t(m_taps) + size_t(index)] : int16_t(0);
            const int base = m_laneBase[m_sharesRun ? i / 4 : i / 4 * size_t(pairs) + pair];
            const int sample = weight != 0 ? m_low[i] + t - base : 0;
            block[slot * 2] = uint8_t(sample * bytesPerSample);
            block[slot * 2 + 1] = bytesPerSample == 1 ? uint8_t(0x80) : uint8_t(sample * 2 + 1);
            std::memcpy(block + 32 + slot * 2, &weight, sizeof(weight));
        }
    }
}

}
