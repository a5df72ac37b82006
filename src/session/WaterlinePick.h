// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "model/CameraType.h"
#include "model/VideoCompositionConfig.h"
#include "session/Side.h"

#include <optional>

namespace zumeta {

/// Heights of the water surface in the two pictures, as fractions of their height, 0 at the bottom.
using AlignmentPoints = Sides<std::optional<double>>;

/// The size of the above picture over that of the composite, as every layout computes it.
double aboveScale(const VideoCompositionConfig& config, CameraType camera);

/// Stores a click on the water surface. With both points known, the above picture moves so that its surface meets the
/// below picture's; the click on the below picture also lays the waterline, divided by the scale because it is stored
/// before zoom.
void pickWaterline(Side side, double height, AlignmentPoints& points, VideoCompositionConfig& config,
                   CameraType camera);

}
