// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/movie/LibavHandles.h"
#include "media/movie/VideoPicture.h"

namespace zumeta {

/// A decoded frame as a picture. Planar Y'CbCr is taken as it is, without a copy; everything else (RGB, palettes,
/// packed and grey formats) is converted to 4:4:4 first. Throws MovieError::cannotDecode when that is not possible.
/// `pixelAspect` is the track's.
VideoPicture pictureFromFrame(Frame frame, double pixelAspect);

}
