// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/movie/VideoPicture.h"

#include <functional>

namespace zumeta {

/// Fills a picture with the whole of another one, which may be of any size and format. The pixel aspect of `source`
/// gives it the shape of `out`.
using PictureScaling = std::function<void(const VideoPicture& source, const WritablePicture& out)>;

/// Makes one for pictures of a size, to be called on one thread.
using PictureScalingMaker = std::function<PictureScaling(int width, int height)>;

}
