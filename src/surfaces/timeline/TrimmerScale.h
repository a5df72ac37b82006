// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace zumeta {

/// Place and time on the trimmer. Places are x in its own box; half a handle is kept free at each end, so that a handle
/// at the very start or end lies inside.
struct TrimmerScale {
    double width = 0;    ///< of the trimmer
    double duration = 0; ///< of the composite, seconds

    double safeDuration() const;
    double inset() const;
    double usable() const; ///< the width that times are spread over
    double xPosition(double time) const;
    /// The time that a place means; places beyond the ends mean the ends.
    double time(double x) const;
    /// A time of this scale may lie beyond a composite without length, the playhead may not.
    double playheadTime(double time) const;

    friend bool operator==(const TrimmerScale&, const TrimmerScale&) = default;
};

}
