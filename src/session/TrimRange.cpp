// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/TrimRange.h"

#include "model/VideoCompositionConfig.h"

#include <algorithm>

namespace zumeta {

TrimRange TrimRange::of(const VideoCompositionConfig& config, double duration)
{
    const double start = config.exportTrimStartSeconds;
    return {start, std::max(duration - config.exportTrimEndSeconds, start)};
}

void clampExportTrim(VideoCompositionConfig& config, double duration)
{
    const double length = std::max(duration, 0.0);
    double& start = config.exportTrimStartSeconds;
    double& end = config.exportTrimEndSeconds;
    start = std::max(0.0, std::min(start, length));
    end = std::max(0.0, std::min(end, std::max(length - start, 0.0)));
}

}
