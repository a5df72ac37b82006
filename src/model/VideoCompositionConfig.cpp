// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/VideoCompositionConfig.h"

namespace zumeta {

const VideoCompositionConfig& VideoCompositionConfig::defaultConfig()
{
    static const VideoCompositionConfig config;
    return config;
}

void VideoCompositionConfig::reset()
{
    *this = defaultConfig();
}

Rect VideoCompositionConfig::calculateAboveCropRect(Size originalSize, Size) const
{
    const double cut = waterlineHeight * scaleFactor();
    return {0, cut, originalSize.width, originalSize.height - cut};
}

double VideoCompositionConfig::calculateAboveYOffset(Size) const
{
    return aboveOffset;
}

Rect VideoCompositionConfig::calculateAboveFrame(Size containerSize) const
{
    const double s = scaleFactor();
    return {aboveHorizontalOffset + (containerSize.width - s * containerSize.width) * 0.5, aboveOffset,
            s * containerSize.width, s * containerSize.height};
}

Rect VideoCompositionConfig::calculateAboveMaskRect(Rect layerBounds) const
{
    // The mask reaches this far past the layer's top in whatever units the layer has.
    constexpr double kReach = 100;
    const double cut = waterlineHeight * scaleFactor();
    return {0, cut - aboveOffset, layerBounds.width, layerBounds.height - cut + aboveOffset + kReach};
}

}
