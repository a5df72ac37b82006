// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/export/ExportTimeline.h"

#include "render/export/ExportError.h"

#include <algorithm>
#include <cmath>

namespace zumeta {

namespace {

constexpr int64_t kFrameTimescale = 60000;
constexpr float kDefaultFrameRate = 30;

}

ExportTimeline ExportTimeline::compute(const ExportParameters& params, double aboveDuration, double belowDuration)
{
    ExportTimeline timeline;
    timeline.offset = (params.manualSyncTimeBelow - params.manualSyncTimeAbove) - params.timingOffset * 0.01;
    // The stretch that both recordings show, on the below video's clock.
    const double overlapStart = std::max(timeline.offset, 0.0);
    const double overlapEnd = std::min(aboveDuration + timeline.offset, belowDuration);
    const double overlap = std::max(overlapEnd - overlapStart, 0.0);
    const double trimStart = std::clamp(params.exportTrimStartSeconds, 0.0, overlap);
    const double trimEnd = std::clamp(params.exportTrimEndSeconds, 0.0, overlap - trimStart);
    timeline.exportDuration = overlap - trimStart - trimEnd;
    if (!(timeline.exportDuration > 0)) {
        throw ExportError(ExportError::Case::exportSessionFailed,
                          QStringLiteral("Export duration is zero or negative"));
    }
    timeline.belowStart = std::max(overlapStart + trimStart, 0.0);
    timeline.aboveStart = std::max(timeline.belowStart - timeline.offset, 0.0);
    return timeline;
}

float exportFrameRate(float nominalFrameRate)
{
    return std::isfinite(nominalFrameRate) && nominalFrameRate > 0 ? nominalFrameRate : kDefaultFrameRate;
}

MediaTime exportFrameDuration(float fps)
{
    // A rate of more than two frames per unit would round to no time at all.
    return {std::max<int64_t>(1, std::llround(double(kFrameTimescale) / double(fps))), kFrameTimescale};
}

int64_t exportTotalFrames(double exportDuration, float fps)
{
    return int64_t(std::trunc(exportDuration * double(fps)));
}

bool ProgressThrottle::shouldReport(double fraction)
{
    if (fraction < 1 && std::trunc(m_last * 100) >= std::trunc(fraction * 100))
        return false;
    m_last = fraction;
    return true;
}

}
