// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/RowScaler.h"

#include <algorithm>
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

RowScaler::RowScaler(const ScalingKernels& kernels, const PlaneScaling& scaling, const Region& region, PlaneView source,
                     ScalerScratch& scratch)
    : m_kernels(kernels)
    , m_scaling(scaling)
    , m_region(region)
    , m_source(source)
    , m_scratch(scratch)
{
    // Vector code reads whole registers past the last sample.
    constexpr int kOverread = 32;
    m_scratch.ring.reserve(scaling.down.taps, region.across.paddedCount() + kOverread);
    m_scratch.ringRows.assign(size_t(scaling.down.taps), -1);
    m_scratch.taps.resize(size_t(scaling.verticalTaps));
}

void RowScaler::scaleAcross(int sourceRow, int16_t* out)
{
    const uint8_t* row = m_source.data + m_source.stride * sourceRow;
    const HorizontalTable& across = m_region.across;
    const size_t bytesPerSample = m_scaling.depth > 8 ? 2 : 1;
    if (m_region.shift) {
        row += ptrdiff_t(across.begin() + *m_region.shift) * ptrdiff_t(bytesPerSample);
        if (bytesPerSample == 1)
            m_kernels.widen8(row, across.count(), out);
        else
            m_kernels.widen16(reinterpret_cast<const uint16_t*>(row), across.count(), m_scaling.depth, out);
        return;
    }
    if (across.readableSamples() > m_scaling.sourceWidth) {
        m_scratch.staged.resize(size_t(across.readableSamples()) * bytesPerSample);
        std::memcpy(m_scratch.staged.data(), row, size_t(m_scaling.sourceWidth) * bytesPerSample);
        row = m_scratch.staged.data();
    }
    if (bytesPerSample == 1)
        m_kernels.horizontal8(row, across.taps(), out);
    else
        m_kernels.horizontal16(reinterpret_cast<const uint16_t*>(row), across.taps(), m_scaling.depth, out);
}

void RowScaler::gather(int row)
{
    const int taps = m_scaling.down.taps;
    const int first = m_scaling.down.first[size_t(row)];
    for (int t = 0; t < taps; ++t) {
        const int slot = (first + t) % taps;
        int16_t* const samples = m_scratch.ring.row(slot);
        int& standing = m_scratch.ringRows[size_t(slot)];
        if (standing != first + t) {
            scaleAcross(first + t, samples);
            standing = first + t;
        }
        m_scratch.taps[size_t(t)] = samples;
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
