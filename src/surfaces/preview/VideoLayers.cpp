// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/preview/VideoLayers.h"

namespace zumeta {

namespace {

using ViewMode = PublishedFields::ViewMode;
using AlignmentState = PublishedFields::AlignmentState;

bool isAboveHidden(const SurfaceValues& values)
{
    switch (values.viewMode) {
    case ViewMode::split:
        // The below water is picked in the below video alone.
        return values.alignmentState == AlignmentState::pickingBelow || values.isAboveVideoBlack;
    case ViewMode::aboveOnly:
        return false;
    case ViewMode::belowOnly:
        return true;
    }
    return true;
}

bool isBelowHidden(const SurfaceValues& values)
{
    switch (values.viewMode) {
    case ViewMode::split:
        return values.isBelowVideoBlack;
    case ViewMode::aboveOnly:
        return true;
    case ViewMode::belowOnly:
        return false;
    }
    return true;
}

}

std::optional<VideoLayers> videoLayers(Size bounds, const SurfaceValues& values, const Sides<bool>& hasItem)
{
    const std::optional<PreviewLayout> preview = previewLayout(bounds, values.geometry());
    if (!preview)
        return std::nullopt;
    VideoLayers layers;
    layers.scaleFactor = preview->layout.scale;
    if (hasItem.below)
        layers.below = VideoLayer{{0, 0, bounds.width, bounds.height}, isBelowHidden(values), std::nullopt};
    if (hasItem.above) {
        layers.above = VideoLayer{preview->layout.above, isAboveHidden(values), std::nullopt};
        if (values.viewMode == ViewMode::split)
            layers.above->mask = preview->mask;
    }
    return layers;
}

}
