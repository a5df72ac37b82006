// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "model/ExportSettings.h"
#include "platform/FileUrl.h"

#include <vector>

namespace zumeta {

/// The whole input of an export.
struct ExportParameters {
    std::vector<FileUrl> aboveVideoURLs; ///< playback order
    std::vector<FileUrl> belowVideoURLs; ///< playback order
    double manualSyncTimeAbove = 0;      ///< seconds into the above video
    double manualSyncTimeBelow = 0;      ///< seconds into the below video
    double waterlineHeight = 0;          ///< reference units
    double aboveZoom = 0;                ///< percent, the camera's base already added
    double aboveOffset = 0;              ///< reference units
    double aboveHorizontalOffset = 0;    ///< reference units
    double timingOffset = 0;             ///< hundredths of a second
    double blendAmount = 0;              ///< reference units
    double exportTrimStartSeconds = 0;   ///< length cut from the start of the common timeline
    double exportTrimEndSeconds = 0;     ///< length cut from its end
    ExportResolutionType resolution = ExportResolutionType::hd720;
    bool showWatermark = false;
    AspectRatio projectAspectRatio;
};

}
