// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/movie/VideoPicture.h"
#include "render/CompositionPlan.h"

#include <memory>
#include <vector>

namespace zumeta {

/// 16-bit rows that grow as needed and are kept from frame to frame; aligned for vector code.
class RowBuffer {
public:
    /// Room for `rows` rows of at least `samples` each.
    void reserve(int rows, int samples);
    int16_t* row(int index) const { return m_first + ptrdiff_t(index) * m_stride; }

private:
    std::unique_ptr<int16_t[]> m_memory;
    int16_t* m_first = nullptr;
    ptrdiff_t m_stride = 0;
    size_t m_size = 0;
};

/// What one scaler works in; belongs to one worker.
struct ScalerScratch {
    RowBuffer ring;            ///< rows after the horizontal pass
    std::vector<int> ringRows; ///< which source row stands in each, or -1
    std::vector<const int16_t*> taps;
    std::vector<uint8_t> staged; ///< rows of a picture too narrow for the kernels
};

/// Makes rows of one region from the top down, each source row scaled across once.
class RowScaler {
public:
    /// For result rows that lie in `rows`.
    RowScaler(const ScalingKernels& kernels, const PlaneScaling& scaling, const Region& region, Span rows,
              PlaneView source, ScalerScratch& scratch);

    /// The samples as bytes. `bias` as the kernels take it.
    void bytes(int row, const int16_t* bias, uint8_t* out);
    /// The samples for blending; room for the region's padded count.
    void fine(int row, int16_t* out);

private:
    void gather(int row);
    void scaleAcross(int firstRow);
    void widen(const uint8_t* row, int16_t* out) const;

    const ScalingKernels& m_kernels;
    const PlaneScaling& m_scaling;
    const Region& m_region;
    int m_endOfSource; ///< behind the last source row that is needed
    int m_ringRows;
    PlaneView m_source;
    ScalerScratch& m_scratch;
};

}
