// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/TrimRange.h"

#include "model/VideoCompositionConfig.h"

#include <algorithm>
#include <cmath>

namespace zumeta {

TrimRange TrimRange::of(const VideoCompositionConfig& config, double duration)
{
    const double start = config.exportTrimStartSeconds;
    return {start, std::max(duration - config.exportTrimEndSeconds, start)};
}

TrimRange TrimRange::within(double duration) const
{
    const double insideStart = std::max(0.0, std::min(start, duration));
    return {insideStart, std::max(insideStart, std::min(end, duration))};
}

void clampExportTrim(VideoCompositionConfig& config, double duration)
{
    const double length = std::max(duration, 0.0);
    double& start = config.exportTrimStartSeconds;
    double& end = config.exportTrimEndSeconds;
    start = std::max(0.0, std::min(start, length));
    end = std::max(0.0, std::min(end, std::max(length - start, 0.0)));
}

double trimEndPosition(const VideoCompositionConfig& config, double duration)
{
    return std::max(0.0, duration - config.exportTrimEndSeconds);
}

double setTrimStart(VideoCompositionConfig& config, double position, double duration, double shortestRange)
{
    const double limit = std::max(0.0, duration - config.exportTrimEndSeconds - shortestRange);
    const double start = std::max(0.0, std::min(position, limit));
    config.exportTrimStartSeconds = start;
    return start;
}

double setTrimEnd(VideoCompositionConfig& config, double position, double duration, double shortestRange)
{
    const double limit = std::min(config.exportTrimStartSeconds + shortestRange, duration);
    const double end = std::max(limit, std::min(position, duration));
    config.exportTrimEndSeconds = std::max(0.0, duration - end);
    return end;
}

bool isSameTrimPoint(double position, double other)
{
    const auto hundredths = [](double seconds) { return std::trunc(seconds * 100 + 1e-6); };
    return hundredths(position) == hundredths(other);
}

}
