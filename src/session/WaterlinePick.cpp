// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/WaterlinePick.h"

#include "render/CompositeGeometry.h"

namespace zumeta {

double aboveScale(const VideoCompositionConfig& config, CameraType camera)
{
    return (config.aboveZoom + baseZoom(camera) + 100) / 100;
}

void pickWaterline(Side side, double height, AlignmentPoints& points, VideoCompositionConfig& config, CameraType camera)
{
    points[side] = height;
    if (!points[otherSide(side)])
        return;
    config.aboveOffset = aboveOffsetBetween(*points.above, *points.below);
    if (side == Side::below)
        config.waterlineHeight = waterlineHeightAt(height, aboveScale(config, camera));
}

}
