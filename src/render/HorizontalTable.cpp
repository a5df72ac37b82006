// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/HorizontalTable.h"

#include <algorithm>
#include <cstring>

namespace zumeta {

namespace {

constexpr int kGroup = 16;          // results
constexpr int kRunBytes = 16;       // of source samples that four results share
constexpr int kRunTaps = 8;         // taps come in such runs where four results share nothing
constexpr int kMostQuickTaps = 6;   // that the kernels know; more would add up too many roundings
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
    m_readable = std::max(sourceWidth, kRunBytes);
    take(filter);
    if (layOutLanes(bytesPerSample))
        return;
    m_readable = std::max(m_readable, roundedUp(filter.taps, kRunTaps));
    take(filter.paddedTo(kRunTaps, m_readable));
}

void HorizontalTable::take(const AxisFilter& filter)
{
    m_taps = filter.taps;
    m_first = filter.first;
    m_weights = filter.weights;
    // The last result stands for those that fill up the last group.
    while (int(m_first.size()) < paddedCount()) {
        m_first.push_back(m_first.back());
        m_weights.resize(m_weights.size() + size_t(m_taps));
        std::copy_n(m_weights.end() - 2 * m_taps, m_taps, m_weights.end() - m_taps);
    }
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
    taps.quickTaps = m_quickTaps;
    taps.lanePairs = m_lanePairs;
    taps.sharesRun = m_sharesRun;
    taps.laneBase = m_laneBase.data();
    taps.lanes = m_lanes.data();
    return taps;
}

/// Where the runs start; false where one does not hold all that it should.
bool HorizontalTable::chooseBases(const Grouping& grouping, int runSamples)
{
    m_laneBase.clear();
    const int runs = grouping.sharesRun ? 1 : grouping.blocks;
    for (size_t i = 0; i < m_low.size(); i += size_t(grouping.resultsInRun)) {
        const auto group = m_low.begin() + ptrdiff_t(i);
        const auto [lowest, highest] = std::minmax_element(group, group + grouping.resultsInRun);
        for (int run = 0; run < runs; ++run) {
            const int offset = grouping.tapsInBlock * run;
            const int base = std::min(*lowest + offset, m_readable - runSamples);
            // What lies past the row has no weight.
            const int last = std::min(*highest + offset + grouping.tapsInRun, m_readable) - 1;
            if (last - base >= runSamples)
                return false;
            m_laneBase.push_back(base);
        }
    }
    return true;
}

void HorizontalTable::layOutBlocks(const Grouping& grouping, int bytesPerSample)
{
    constexpr size_t kBlock = 64; // 32 bytes of picks, 16 weights
    const int resultsInBlock = 16 / grouping.tapsInBlock;
    m_lanes.assign(m_first.size() / size_t(resultsInBlock) * size_t(grouping.blocks) * kBlock, 0);
    for (int i = 0; i < int(m_first.size()); ++i) {
        const size_t result = size_t(i);
        for (int t = 0; t < grouping.tapsInBlock * grouping.blocks; ++t) {
            const int block = t / grouping.tapsInBlock;
            uint8_t* const picks = m_lanes.data() + size_t(i / resultsInBlock * grouping.blocks + block) * kBlock;
            const size_t slot = size_t(i % resultsInBlock * grouping.tapsInBlock + t % grouping.tapsInBlock); // of 16
            const int index = m_low[result] - m_first[result] + t;
            const int16_t weight = index < m_taps ? m_weights[result * size_t(m_taps) + size_t(index)] : int16_t(0);
            const int run = grouping.sharesRun ? 0 : block;
            const int base =
                m_laneBase[size_t(i / grouping.resultsInRun * (grouping.sharesRun ? 1 : grouping.blocks) + run)];
            const int sample = weight != 0 ? m_low[result] + t - base : 0;
            constexpr uint8_t kNothing = 0x80;   // picks a 0
            const bool isHigh = m_quickTaps > 0; // the sample goes to the high byte of its word
            picks[slot * 2] = isHigh ? kNothing : uint8_t(sample * bytesPerSample);
            picks[slot * 2 + 1] = isHigh ? uint8_t(sample) : bytesPerSample == 1 ? kNothing : uint8_t(sample * 2 + 1);
            std::memcpy(picks + 32 + slot * 2, &weight, sizeof(weight));
        }
    }
}

bool HorizontalTable::layOutLanes(int bytesPerSample)
{
    int taps = 1;
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
        taps = std::max(taps, to - from);
    }
    const int pairs = (taps + 1) / 2;
    const int runSamples = kRunBytes / bytesPerSample;
    const Grouping quick{8, taps, 1, taps, true};
    const Grouping shared{4, 2 * pairs, 2, pairs, true};
    const Grouping separate{4, 2, 2, pairs, false};
    if (bytesPerSample == 1 && taps <= kMostQuickTaps && chooseBases(quick, runSamples)) {
        m_quickTaps = taps;
        layOutBlocks(quick, bytesPerSample);
    } else if (pairs <= kMostSharedPairs && chooseBases(shared, runSamples)) {
        m_lanePairs = pairs;
        m_sharesRun = true;
        layOutBlocks(shared, bytesPerSample);
    } else if (pairs <= kMostLanePairs && chooseBases(separate, runSamples)) {
        m_lanePairs = pairs;
        layOutBlocks(separate, bytesPerSample);
    } else {
        return false;
    }
    return true;
}

}
