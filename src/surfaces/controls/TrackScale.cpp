// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/controls/TrackScale.h"

#include <algorithm>
#include <cmath>

namespace zumeta {

TrackScale TrackScale::of(double width, const ValueRowRules& rules)
{
    return {.width = width, .lower = rules.lower, .upper = rules.upper, .step = rules.step};
}

double TrackScale::value(double x) const
{
    const double fraction = width > 0 ? std::clamp(x / width, 0.0, 1.0) : 0;
    // Half a step counts away from zero, as std::round has it.
    return std::round((lower + (upper - lower) * fraction) / step) * step;
}

double TrackScale::knobCentre(double value) const
{
    // An empty range stands at its beginning.
    const double span = upper - lower;
    return span > 0 ? width * std::clamp((value - lower) / span, 0.0, 1.0) : 0;
}

std::optional<double> TrackScale::zeroTick() const
{
    return lower < 0 && upper > 0 ? std::optional(knobCentre(0)) : std::nullopt;
}

}
