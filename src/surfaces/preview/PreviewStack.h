// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "session/PublishedFields.h"

namespace zumeta {

/// What the preview's stack depends on.
struct PreviewStackFacts {
    PublishedFields::WorkflowStep currentStep = PublishedFields::WorkflowStep::step1;
    PublishedFields::ViewMode viewMode = PublishedFields::ViewMode::split;
    Sides<bool> hasItem;   ///< in the players
    Sides<bool> isMissing; ///< media of an opened project
    bool showSkeletonOverlay = false;
    bool isAdjustingWaterline = false;
};

/// What stands over the preview's background, from back to front.
struct PreviewStack {
    bool hasSurface = false; ///< and nothing but missing media without it
    bool hasSkeletonOverlay = false;
    bool hasWaterlineIndicator = false;
    double waterlineIndicatorOpacity = 0;
    bool hasVerticalGuideLine = false;
    /// Over all of the picture's area.
    bool hasMissingMediaView = false;
    friend bool operator==(const PreviewStack&, const PreviewStack&) = default;
};

PreviewStack previewStack(const PreviewStackFacts& facts);

}
