// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "model/CameraType.h"
#include "session/PublishedFields.h"

namespace zumeta {

/// What the session knows that the preview is made of.
struct PreviewFacts {
    VideoCompositionConfig projectConfig;
    AspectRatio projectAspectRatio;
    PublishedFields::WorkflowStep currentStep = PublishedFields::WorkflowStep::step1;
    CameraType selectedCamera = CameraType::gopro;
    PublishedFields::ViewMode viewMode = PublishedFields::ViewMode::split;
    PublishedFields::AlignmentState alignmentState = PublishedFields::AlignmentState::none;
    double currentTime = 0;
    Sides<bool> isVideoBlack;
};

/// What the surface is told at every change of the session. The values given here hold until the first time.
struct SurfaceValues {
    double waterlineHeight = 350;
    double aboveZoom = 0; ///< effective: with the camera's base zoom
    double aboveOffset = 0;
    double aboveHorizontalOffset = 0;
    double timingOffset = 0; ///< not used in the layout, nor are the times
    double blendAmount = 15;
    PublishedFields::ViewMode viewMode = PublishedFields::ViewMode::split;
    PublishedFields::AlignmentState alignmentState = PublishedFields::AlignmentState::none;
    AspectRatio projectAspectRatio;
    double currentTime = 0;
    double aboveStartTime = 0;
    double belowStartTime = 0;
    bool isAboveVideoBlack = false;
    bool isBelowVideoBlack = false;

    /// The values that the layout reads, as geometry takes them.
    VideoCompositionConfig geometry() const;

    friend bool operator==(const SurfaceValues&, const SurfaceValues&) = default;
};

/// In Step 1 the above picture stands centred, whatever its offsets are.
SurfaceValues surfaceValues(const PreviewFacts& facts);

}
