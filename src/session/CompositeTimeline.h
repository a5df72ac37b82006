// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace zumeta {

/// What one recording brings into the composite.
struct SideTiming {
    double duration = 0; ///< seconds
    double syncTime = 0; ///< media time of the landmark, seconds
};

/// The overlap of the two recordings: composite time t shows the above video at aboveStart + t and the below video at
/// belowStart + t. Seconds. Time 0 is the first instant at which both have a picture; at `duration` the first of them
/// ends. All zero while one of them is missing.
struct CompositeTimeline {
    double aboveStart = 0;
    double belowStart = 0;
    double duration = 0;

    /// `timingOffset` in hundredths of a second; a positive one makes the above video's media time run ahead.
    static CompositeTimeline of(SideTiming above, SideTiming below, double timingOffset);

    double aboveMediaTime(double compositeTime) const { return aboveStart + compositeTime; }
    double belowMediaTime(double compositeTime) const { return belowStart + compositeTime; }

    friend bool operator==(const CompositeTimeline&, const CompositeTimeline&) = default;
};

}
