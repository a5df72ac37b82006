// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/preview/SurfaceValues.h"

namespace zumeta {

VideoCompositionConfig SurfaceValues::geometry() const
{
    VideoCompositionConfig config;
    config.waterlineHeight = waterlineHeight;
    config.aboveZoom = aboveZoom;
    config.aboveOffset = aboveOffset;
    config.aboveHorizontalOffset = aboveHorizontalOffset;
    config.blendAmount = blendAmount;
    return config;
}

SurfaceValues surfaceValues(const PreviewFacts& facts)
{
    const VideoCompositionConfig& config = facts.projectConfig;
    const bool isCentred = facts.currentStep == PublishedFields::WorkflowStep::step1;
    SurfaceValues values;
    values.waterlineHeight = config.waterlineHeight;
    values.aboveZoom = config.aboveZoom + baseZoom(facts.selectedCamera);
    values.aboveOffset = isCentred ? 0 : config.aboveOffset;
    values.aboveHorizontalOffset = isCentred ? 0 : config.aboveHorizontalOffset;
    values.timingOffset = config.timingOffset;
    values.blendAmount = config.blendAmount;
    values.viewMode = facts.viewMode;
    values.alignmentState = facts.alignmentState;
    values.projectAspectRatio = facts.projectAspectRatio;
    values.currentTime = facts.currentTime;
    values.aboveStartTime = config.aboveStartTime;
    values.belowStartTime = config.belowStartTime;
    values.isAboveVideoBlack = facts.isVideoBlack.above;
    values.isBelowVideoBlack = facts.isVideoBlack.below;
    return values;
}

}
