// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/RowScaler.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace zumeta {

void RowBuffer::reserve(int rows, int samples)
{
    constexpr ptrdiff_t kAlignment = 64 / sizeof(int16_t);
    // An odd number of cache lines keeps equal columns of neighbouring rows out of the same cache set.
    const ptrdiff_t stride = ((samples + kAlignment - 1) / kAlignment | 1) * kAlignment;
    const size_t needed = size_t(rows) * size_t(stride) + size_t(kAlignment);
    if (needed > m_size) {
        m_memory = std::make_unique<int16_t[]>(needed);
        m_size = needed;
        void* start = m_memory.get();
        size_t space = needed * sizeof(int16_t);
        m_first = static_cast<int16_t*>(std::align(64, sizeof(int16_t), start, space));
    }
    m_stride = stride;
}

RowScaler::RowScaler(const ScalingKernels& kernels, const PlaneScaling& scaling, const Region& region, Span rows,
                     PlaneView source, ScalerScratch& scratch)
    : m_kernels(kernels)
    , m_scaling(scaling)
    , m_region(region)
    , m_endOfSource(scaling.down.first[size_t(rows.end) - 1] + scaling.down.taps)
    , m_ringRows(scaling.down.taps + kRowsAtOnce - 1)
    , m_source(source)
    , m_scratch(scratch)
{
    // Vector code reads whole registers past the last sample.
    constexpr int kOverread = 32;
    m_scratch.ring.reserve(m_ringRows, region.across.paddedCount() + kOverread);
    m_scratch.ringRows.assign(size_t(m_ringRows), -1);
    m_scratch.taps.resize(size_t(scaling.verticalTaps));
}

void RowScaler::widen(const uint8_t* row, int16_t* out) const
{
    const ptrdiff_t column = m_region.across.begin() + *m_region.shift;
    if (m_scaling.depth == 8)
        m_kernels.widen8(row + column, m_region.across.count(), out);
    else
        m_kernels.widen16(reinterpret_cast<const uint16_t*>(row) + column, m_region.across.count(), m_scaling.depth,
                          out);
}

/// Scales this source row and those after it that will be needed too, as many as the kernels take at once.
void RowScaler::scaleAcross(int firstRow)
{
    const HorizontalTable& across = m_region.across;
    const int count = std::min(kRowsAtOnce, m_endOfSource - firstRow);
    std::array<const uint8_t*, kRowsAtOnce> rows{};
    std::array<int16_t*, kRowsAtOnce> results{};
    for (int r = 0; r < count; ++r) {
        const int slot = (firstRow + r) % m_ringRows;
        rows[size_t(r)] = m_source.data + m_source.stride * (firstRow + r);
        results[size_t(r)] = m_scratch.ring.row(slot);
        m_scratch.ringRows[size_t(slot)] = firstRow + r;
    }
    if (m_region.shift) {
        for (int r = 0; r < count; ++r)
            widen(rows[size_t(r)], results[size_t(r)]);
        return;
    }
    if (across.readableSamples() > m_scaling.sourceWidth) {
        const size_t bytesPerSample = m_scaling.depth > 8 ? 2 : 1;
        const size_t rowBytes = size_t(across.readableSamples()) * bytesPerSample;
        m_scratch.staged.resize(rowBytes * kRowsAtOnce);
        for (int r = 0; r < count; ++r) {
            uint8_t* const staged = m_scratch.staged.data() + size_t(r) * rowBytes;
            std::memcpy(staged, rows[size_t(r)], size_t(m_scaling.sourceWidth) * bytesPerSample);
            rows[size_t(r)] = staged;
        }
    }
    HorizontalTaps taps = across.taps();
    taps.ahead = m_source.stride * kRowsAtOnce;
    if (m_scaling.depth == 8)
        m_kernels.horizontal8(rows.data(), count, taps, results.data());
    else
        m_kernels.horizontal16(rows.data(), count, taps, m_scaling.depth, results.data());
}

void RowScaler::gather(int row)
{
    const int taps = m_scaling.down.taps;
    const int first = m_scaling.down.first[size_t(row)];
    for (int t = 0; t < taps; ++t) {
        const int slot = (first + t) % m_ringRows;
        if (m_scratch.ringRows[size_t(slot)] != first + t)
            scaleAcross(first + t);
        m_scratch.taps[size_t(t)] = m_scratch.ring.row(slot);
    }
    // Filled-up taps have no weight: any row will do.
    std::fill(m_scratch.taps.begin() + taps, m_scratch.taps.end(), m_scratch.taps[0]);
}

void RowScaler::bytes(int row, const int16_t* bias, uint8_t* out)
{
    gather(row);
    const int16_t* const weights = m_scaling.verticalWeights.data() + ptrdiff_t(row) * m_scaling.verticalTaps;
    if (m_scaling.isQuick)
        m_kernels.quickVertical(m_scratch.taps.data(), weights, bias, m_region.across.count(), out);
    else
        m_kernels.exactVertical(m_scratch.taps.data(), weights, m_scaling.verticalTaps, bias, m_region.across.count(),
                                out);
}

void RowScaler::fine(int row, int16_t* out)
{
    gather(row);
    const int16_t* const weights = m_scaling.verticalWeights.data() + ptrdiff_t(row) * m_scaling.verticalTaps;
    m_kernels.fineVertical(m_scratch.taps.data(), weights, m_scaling.verticalTaps, m_scaling.offset,
                           m_region.across.count(), out);
}

}
