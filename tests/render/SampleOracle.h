// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/movie/VideoPicture.h"
#include "render/CompositeGeometry.h"

namespace zumeta {

/// What one sample of a composite should be before rounding, evaluated in double precision straight from the layout's
/// definition: two-dimensional kernel at the sample's site, range conversion, ramp. Slow and plain; for sources in
/// BT.709 SDR.
double expectedSample(const CompositeLayout& layout, const VideoPicture& below, const VideoPicture* above, int plane,
                      int x, int y);

}
