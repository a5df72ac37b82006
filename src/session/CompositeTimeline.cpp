// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/CompositeTimeline.h"

#include <algorithm>

namespace zumeta {

CompositeTimeline CompositeTimeline::of(SideTiming above, SideTiming below, double timingOffset)
{
    constexpr double kSecondsOfOffsetUnit = -0.01;
    if (above.duration <= 0 || below.duration <= 0)
        return {};
    // How far the below video's media time runs ahead of the above's at one instant of the swim.
    const double delta = (below.syncTime - above.syncTime) + timingOffset * kSecondsOfOffsetUnit;
    const double belowStart = delta >= 0 ? delta : 0;
    const double overlap = std::min(above.duration + delta, below.duration) - belowStart;
    return {std::max(belowStart - delta, 0.0), belowStart, std::max(overlap, 0.0)};
}

}
