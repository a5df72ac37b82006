// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/timeline/SliderScale.h"

#include "surfaces/timeline/TimelineMetrics.h"

#include <algorithm>

namespace zumeta {

SliderScale SliderScale::of(double width, double duration)
{
    return {width, 0, std::max(duration, kShortestScale)};
}

double SliderScale::progress(double time) const
{
    const double span = std::max(upper - lower, kShortestScale);
    return std::clamp((time - lower) / span, 0.0, 1.0);
}

double SliderScale::filledWidth(double time) const
{
    return std::max(width * progress(time), 0.0);
}

double SliderScale::thumbCentre(double time) const
{
    return std::min(width * progress(time), width - kThumbWidth / 2);
}

double SliderScale::time(double x) const
{
    // A slider that is not laid out yet has no other place.
    const double fraction = width > 0 ? std::clamp(x / width, 0.0, 1.0) : 0;
    return lower + (upper - lower) * fraction;
}

QSizeF thumbSize(ThumbState state)
{
    const QSizeF resting(kThumbWidth, kThumbHeight);
    return state == ThumbState::resting ? resting : resting + QSizeF(kThumbWidthGrowth, kThumbHeightGrowth);
}

}
