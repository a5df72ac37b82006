// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "surfaces/controls/ValueRowRules.h"

namespace zumeta {

/// Place and value on the track of a value row. Places are x in the track's box. The knob's middle runs over the whole
/// width, so that it stands where it was put.
struct TrackScale {
    double width = 0; ///< of the track
    double lower = 0;
    double upper = 0;
    double step = 1; ///< above 0

    static TrackScale of(double width, const ValueRowRules& rules);

    /// The nearest multiple of the step. The grid runs through 0 and not through the lower bound, so it may lie beyond
    /// a bound that the step does not divide.
    double value(double x) const;
    double knobCentre(double value) const;
    /// The mark at 0 of a range that has both signs.
    std::optional<double> zeroTick() const;
};

}
