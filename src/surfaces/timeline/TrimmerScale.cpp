// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/timeline/TrimmerScale.h"

#include "surfaces/timeline/TimelineMetrics.h"

#include <algorithm>

namespace zumeta {

double TrimmerScale::safeDuration() const
{
    return std::max(duration, kShortestScale);
}

double TrimmerScale::inset() const
{
    return std::max(std::min(width / 2, kHandleWidth / 2), 0.0);
}

double TrimmerScale::usable() const
{
    return std::max(width - 2 * inset(), 1.0);
}

double TrimmerScale::xPosition(double time) const
{
    return inset() + std::clamp(time / safeDuration(), 0.0, 1.0) * usable();
}

double TrimmerScale::time(double x) const
{
    return std::clamp((x - inset()) / usable(), 0.0, 1.0) * safeDuration();
}

double TrimmerScale::playheadTime(double time) const
{
    return std::max(0.0, std::min(time, duration));
}

}
