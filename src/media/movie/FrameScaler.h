// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/movie/LibavHandles.h"
#include "media/movie/VideoPicture.h"

#include <functional>
#include <optional>
#include <vector>

namespace zumeta {

/// Gives the same picture in BT.709 limited range, at any depth and chroma size.
using ColourConversion = std::function<VideoPicture(const VideoPicture&)>;

/// Wide colours and HDR, which eight bits hold badly.
bool isBeyondStandardColours(const PictureFormat& format);

/// Makes pictures of one size, 8 bit and 4:2:0 out of any. The samples keep their meaning (range, matrix, siting) where
/// the format can hold it, so nothing is converted that whoever reads them converts anyway.
class FrameScaler {
public:
    /// `toStandardColours` is asked for pictures beyond standard colours; without it they keep theirs.
    FrameScaler(int width, int height, ColourConversion toStandardColours);

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
    Frame pooledFrame();

    const int m_width;
    const int m_height;
    const ColourConversion m_toStandardColours;
    std::optional<Step> m_shrinking; ///< keeps the samples' form, where a conversion comes behind it
    std::optional<Step> m_finishing; ///< gives the output's form
    std::vector<Frame> m_pool;
};

}
