// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/movie/VideoPicture.h"

#include <memory>
#include <vector>

namespace zumeta::test {

/// A picture in memory with its planes one after the other and no padding, as raw video files hold it.
class RawPicture {
public:
    explicit RawPicture(const PictureFormat& format);
    /// A copy of what a view shows.
    explicit RawPicture(const VideoPicture& picture);

    static size_t byteCount(const PictureFormat& format);

    const PictureFormat& format() const { return m_format; }
    int planeWidth(int plane) const { return plane == 0 ? m_format.width : m_format.chromaWidth(); }
    int planeHeight(int plane) const { return plane == 0 ? m_format.height : m_format.chromaHeight(); }

    /// Row 0 is the top one. Coordinates outside the plane take the nearest sample.
    int sample(int plane, int x, int y) const;
    void setSample(int plane, int x, int y, int value);

    /// Luma with black 0 and white 1, by the format's range and depth.
    double luma(int x, int y) const;

    const std::vector<uint8_t>& bytes() const { return *m_bytes; }
    std::vector<uint8_t>& bytes() { return *m_bytes; }
    VideoPicture view() const;

private:
    size_t offset(int plane, int x, int y) const;

    PictureFormat m_format;
    std::shared_ptr<std::vector<uint8_t>> m_bytes; ///< shared with the views, never between RawPictures that are drawn
};

/// Peak signal to noise ratio of one plane in dB, by the depth's own peak; infinite when equal. Sizes must agree.
double planePsnr(const RawPicture& a, const RawPicture& b, int plane);
/// The worst of the three planes.
double worstPsnr(const RawPicture& a, const RawPicture& b);
/// The largest difference of any sample of any plane.
int largestDifference(const RawPicture& a, const RawPicture& b);

}
