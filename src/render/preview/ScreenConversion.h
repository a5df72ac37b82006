// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/movie/VideoPicture.h"
#include "render/WorkerPool.h"
#include "render/preview/ScreenKernels.h"
#include "render/preview/ScreenPicture.h"

namespace zumeta {

/// Turns composed frames into pictures for the screen, by the matrix and range that such frames have: BT.709, limited.
/// Chroma is interpolated between its sites. Holds its rows from frame to frame and serves one thread at a time.
class ScreenConversion {
public:
    explicit ScreenConversion(const ScreenKernels& kernels = bestScreenKernels())
        : m_kernels(kernels)
    {}

    /// Both of one size; the workers share the rows.
    void convert(const WritablePicture& frame, const ScreenPicture& out, WorkerPool& workers);

private:
    /// One worker's.
    struct Rows {
        std::vector<int16_t> mixed;
        std::vector<int16_t> cb;
        std::vector<int16_t> cr;
    };
    void spreadChroma(const WritablePicture& frame, int plane, int row, std::vector<int16_t>& mixed,
                      std::vector<int16_t>& out) const;
    void convertRow(const WritablePicture& frame, int row, const ScreenPicture& out, Rows& rows) const;

    const ScreenKernels& m_kernels;
    std::vector<Rows> m_rows;
};

}
