// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "model/CameraType.h"
#include "model/ProjectState.h"
#include "render/export/ExportParameters.h"
#include "session/Side.h"

#include <optional>

namespace zumeta {

/// What the session knows that an export needs.
struct ExportInputs {
    const ProjectState& projectState; ///< its videos and its shape
    const VideoCompositionConfig& projectConfig;
    Sides<std::optional<double>> manualSyncTime{}; ///< counts before the config's start time
    ExportResolutionType selectedResolution = ExportResolutionType::hd720;
    CameraType selectedCamera = CameraType::gopro;
    bool shouldShowWatermark = false;
};

/// Nothing when one of the two videos or its files are missing.
std::optional<ExportParameters> exportParameters(const ExportInputs& inputs);

}
