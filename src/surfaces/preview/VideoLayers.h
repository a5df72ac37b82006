// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "render/CompositeGeometry.h"
#include "surfaces/preview/SurfaceValues.h"

#include <optional>

namespace zumeta {

/// One video within the surface; it fills its frame and is cut where its shape is another.
struct VideoLayer {
    Rect frame; ///< origin bottom left; what lies outside the surface is cut off
    bool isHidden = false;
    std::optional<MaskStops> mask; ///< without one all of the layer is seen
    friend bool operator==(const VideoLayer&, const VideoLayer&) = default;
};

/// The stack of the preview, the above layer on top.
struct VideoLayers {
    double scaleFactor = 1;          ///< `s`
    std::optional<VideoLayer> above; ///< none without an item in the player
    std::optional<VideoLayer> below;

    bool shows(Side side) const
    {
        const std::optional<VideoLayer>& layer = side == Side::above ? above : below;
        return layer && !layer->isHidden;
    }
    friend bool operator==(const VideoLayers&, const VideoLayers&) = default;
};

/// None for an empty surface: what was laid out before stands.
std::optional<VideoLayers> videoLayers(Size bounds, const SurfaceValues& values, const Sides<bool>& hasItem);

}
