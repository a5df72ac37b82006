// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/export/ExportLayout.h"

namespace zumeta {

std::optional<CompositeLayout> exportLayout(const ExportParameters& params)
{
    const ExportResolutionFacts& size = facts(params.resolution);
    VideoCompositionConfig config;
    config.waterlineHeight = params.waterlineHeight;
    config.aboveZoom = params.aboveZoom;
    config.aboveOffset = params.aboveOffset;
    config.aboveHorizontalOffset = params.aboveHorizontalOffset;
    config.blendAmount = params.blendAmount;
    return exportLayout({double(size.width), double(size.height)}, params.projectAspectRatio, config);
}

}
