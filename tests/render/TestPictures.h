// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/movie/VideoPicture.h"

#include <functional>
#include <random>

namespace zumeta {

/// Code value of a sample, by plane and position.
using SampleFunction = std::function<int(int plane, int x, int y)>;

/// A picture in memory that ends with its last sample: reading on is an error that a sanitizer sees.
VideoPicture makePicture(const PictureFormat& format, const SampleFunction& sampleAt);
VideoPicture makeNoise(const PictureFormat& format, std::mt19937& random);
VideoPicture makeFlat(const PictureFormat& format, int y, int cb, int cr);

int sampleOf(const VideoPicture& picture, int plane, int x, int y);
int planeWidth(const PictureFormat& format, int plane);
int planeHeight(const PictureFormat& format, int plane);

/// A frame whose rows are exactly as long as the picture is wide, with guard bytes after each; `guardsHold` tells
/// whether nobody wrote into them.
struct GuardedFrame {
    WritablePicture picture;
    explicit GuardedFrame(int width, int height);
    bool guardsHold() const;
    int at(int plane, int x, int y) const
    {
        const WritablePlane& p = picture.planes[size_t(plane)];
        return p.data[p.stride * y + x];
    }
    int width(int plane) const { return plane == 0 ? picture.width : picture.width / 2; }
    int height(int plane) const { return plane == 0 ? picture.height : picture.height / 2; }
    bool sameAs(const GuardedFrame& other) const;
};

}
