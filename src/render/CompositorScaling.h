// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/movie/PictureScaling.h"

namespace zumeta {

/// Scaling by the compositor, in BT.709 limited range: a proxy's picture is what the preview would make of the source
/// at that size, HDR and wide colours included.
PictureScalingMaker compositorScaling();

}
