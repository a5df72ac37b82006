// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/HorizontalTable.h"

#include <algorithm>
#include <cstring>

namespace zumeta {

namespace {

constexpr int kGroup = 16;    // results
constexpr int kRunBytes = 16; // of source samples that four results share
constexpr int kRunTaps = 8;   // taps come in such runs where four results share nothing
constexpr int kMostLanePairs = 4;

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
    return {m_count, m_taps, m_first.data(), m_weights.data(), m_lanePairs, m_laneBase.data(), m_lanes.data()};
}

void HorizontalTable::layOutLanes(int bytesPerSample)
{
    const int runSamples = kRunBytes / bytesPerSample;
    // Which taps are used at all, over all results: the padding of the table must not make windows wider than needed.
    std::vector<int> low(m_first.size());
    int pairs = 1;
    for (size_t i = 0; i < m_first.size(); ++i) {
        const int16_t* const weights = m_weights.data() + i * size_t(m_taps);
        int from = 0;
        int to = m_taps;
        while (from < to - 1 && weights[from] == 0)
            ++from;
        while (to - 1 > from && weights[to - 1] == 0)
            --to;
        low[i] = m_first[i] + from;
        pairs = std::max(pairs, (to - from + 1) / 2);
    }
    if (pairs > kMostLanePairs)
        return;
    std::vector<int32_t> bases;
    for (size_t i = 0; i < m_first.size(); i += 4) {
        const int base = std::min(*std::min_element(low.begin() + ptrdiff_t(i), low.begin() + ptrdiff_t(i) + 4),
                                  m_readable - runSamples);
        bases.push_back(base);
        for (size_t j = i; j < i + 4; ++j) {
            // Taps that lie past the run must be empty ones.
            const int16_t* const weights = m_weights.data() + j * size_t(m_taps);
            for (int t = low[j] - m_first[j]; t < m_taps; ++t) {
                if (weights[t] != 0 && m_first[j] + t - base >= runSamples)
                    return;
            }
        }
    }

    constexpr size_t kBlock = 64; // 32 bytes of picks, 16 weights
    m_lanes.assign(m_first.size() / 8 * size_t(pairs) * kBlock, 0);
    for (size_t i = 0; i < m_first.size(); ++i) {
        const int base = bases[i / 4];
        for (int t = 0; t < 2 * pairs; ++t) {
            uint8_t* const block = m_lanes.data() + ((i / 8) * size_t(pairs) + size_t(t / 2)) * kBlock;
            const size_t slot = (i % 8) * 2 + size_t(t % 2); // of 16
            const int index = low[i] - m_first[i] + t;
            const bool inTable = index < m_taps;
            const int16_t weight = inTable ? m_weights[i * size_t(m_taps) + size_t(index)] : int16_t(0);
            const int sample = weight != 0 ? low[i] + t - base : 0;
            block[slot * 2] = uint8_t(sample * bytesPerSample);
            block[slot * 2 + 1] = bytesPerSample == 1 ? uint8_t(0x80) : uint8_t(sample * 2 + 1);
            std::memcpy(block + 32 + slot * 2, &weight, sizeof(weight));
        }
    }
    m_lanePairs = pairs;
    m_laneBase = std::move(bases);
}

}
