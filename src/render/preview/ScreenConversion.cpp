// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/preview/ScreenConversion.h"

#include <algorithm>
#include <cassert>

namespace zumeta {

void ScreenConversion::spreadChroma(const WritablePicture& frame, int plane, int row, std::vector<int16_t>& mixed,
                                    std::vector<int16_t>& out) const
{
    const WritablePlane& chroma = frame.planes[size_t(plane)];
    const int count = frame.width / 2;
    const int near = row / 2;
    // A row of chroma sits between its two rows of luma.
    const int far = std::clamp(row % 2 == 0 ? near - 1 : near + 1, 0, frame.height / 2 - 1);
    m_kernels.mixRows(chroma.data + chroma.stride * near, chroma.data + chroma.stride * far, count, mixed.data());
    mixed[size_t(count)] = mixed[size_t(count) - 1];
    m_kernels.spread(mixed.data(), count, out.data());
}

void ScreenConversion::convertRow(const WritablePicture& frame, int row, const ScreenPicture& out, Rows& rows) const
{
    spreadChroma(frame, 1, row, rows.mixed, rows.cb);
    spreadChroma(frame, 2, row, rows.mixed, rows.cr);
    const WritablePlane& luma = frame.planes[0];
    m_kernels.toScreen(luma.data + luma.stride * row, rows.cb.data(), rows.cr.data(), frame.width, out.row(row));
}

void ScreenConversion::convert(const WritablePicture& frame, const ScreenPicture& out, WorkerPool& workers)
{
    assert(frame.width == out.width && frame.height == out.height);
    m_rows.resize(size_t(workers.workers()));
    for (Rows& rows : m_rows) {
        rows.mixed.resize(size_t(frame.width) / 2 + 1);
        rows.cb.resize(size_t(frame.width));
        rows.cr.resize(size_t(frame.width));
    }
    constexpr int kRowsPerPiece = 32;
    workers.run((frame.height + kRowsPerPiece - 1) / kRowsPerPiece, [&](int piece, int worker) {
        const int end = std::min((piece + 1) * kRowsPerPiece, frame.height);
        for (int row = piece * kRowsPerPiece; row < end; ++row)
            convertRow(frame, row, out, m_rows[size_t(worker)]);
    });
}

}
