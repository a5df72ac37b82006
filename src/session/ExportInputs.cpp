// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/ExportInputs.h"

namespace zumeta {

std::optional<ExportParameters> exportParameters(const ExportInputs& inputs)
{
    const std::optional<VideoAsset>& above = inputs.projectState.aboveVideo;
    const std::optional<VideoAsset>& below = inputs.projectState.belowVideo;
    if (!above || !below || above->fileURLs.empty() || below->fileURLs.empty())
        return std::nullopt;
    const VideoCompositionConfig& config = inputs.projectConfig;
    ExportParameters params;
    params.aboveVideoURLs = above->fileURLs;
    params.belowVideoURLs = below->fileURLs;
    params.manualSyncTimeAbove = inputs.manualSyncTime.above.value_or(config.aboveStartTime);
    params.manualSyncTimeBelow = inputs.manualSyncTime.below.value_or(config.belowStartTime);
    params.waterlineHeight = config.waterlineHeight;
    params.aboveZoom = config.aboveZoom + baseZoom(inputs.selectedCamera);
    params.aboveOffset = config.aboveOffset;
    params.aboveHorizontalOffset = config.aboveHorizontalOffset;
    params.timingOffset = config.timingOffset;
    params.blendAmount = config.blendAmount;
    params.exportTrimStartSeconds = config.exportTrimStartSeconds;
    params.exportTrimEndSeconds = config.exportTrimEndSeconds;
    params.resolution = inputs.selectedResolution;
    params.showWatermark = inputs.shouldShowWatermark;
    params.projectAspectRatio = inputs.projectState.projectAspectRatio;
    return params;
}

}
