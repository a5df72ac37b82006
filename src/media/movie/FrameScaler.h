// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/movie/LibavHandles.h"
#include "media/movie/PictureScaling.h"

#include <optional>
#include <vector>

namespace zumeta {

/// Wide colours and HDR, which eight bits hold badly.
bool isBeyondStandardColours(const PictureFormat& format);

/// Makes pictures of one size, 8 bit and 4:2:0 out of any.
class FrameScaler {
public:
    /// Without `scaling` the samples keep their meaning (range, matrix, siting) where the format can hold it, so
    /// nothing is converted that whoever reads them converts anyway.
    FrameScaler(int width, int height, PictureScaling scaling);

    /// What comes out for a source picture of this format.
    PictureFormat outputFormat(const PictureFormat& source) const;
    /// The picture as `output` says, from a pool. Throws MovieError::cannotDecode.
    Frame scale(const VideoPicture& source, const PictureFormat& output);

private:
    struct Step {
        PictureFormat from;
        PictureFormat to;
        Scaler scaler;
    };
    static Scaler openScaler(const PictureFormat& from, const PictureFormat& to);
    static void run(std::optional<Step>& step, const VideoPicture& source, const PictureFormat& to, AVFrame& target);
    VideoPicture shrunk(const VideoPicture& source);
    Frame pooledFrame();

    const int m_width;
    const int m_height;
    const PictureScaling m_scaling;
    std::optional<Step> m_shrinking; ///< keeps the samples' form for m_scaling
    std::optional<Step> m_finishing; ///< in place of m_scaling
    std::vector<Frame> m_pool;
};

}
