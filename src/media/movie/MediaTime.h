// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <compare>
#include <cstdint>

namespace zumeta {

/// An exact moment or length: value / timescale seconds. Arithmetic is exact; only the two conversions from seconds
/// round, and they say how.
struct MediaTime {
    int64_t value = 0;
    int64_t timescale = 1; ///< above 0

    double seconds() const { return double(value) / double(timescale); }
    /// The nearest multiple of 1/timescale, halves away from zero.
    static MediaTime nearest(double seconds, int64_t timescale);

    /// Exact in the common timescale; reduced so that chains of additions stay small.
    friend MediaTime operator+(MediaTime a, MediaTime b);
    friend MediaTime operator-(MediaTime a, MediaTime b);
    friend std::strong_ordering operator<=>(MediaTime a, MediaTime b);
    friend bool operator==(MediaTime a, MediaTime b) { return (a <=> b) == std::strong_ordering::equal; }
};

/// A frame is shown at time t when it is the last one with pts <= t + this: half a step of the timescale in which
/// targets are made, so that a target computed from a frame's own number finds that frame. Seconds.
inline constexpr double kFrameTimeTolerance = 1.0 / 120000.0;

/// The latest begin of a frame that is shown at `seconds`, in seconds: the tolerance, and what doubles lose.
double latestBegin(double seconds);

/// Whether a frame with this time stamp has begun at `seconds`. The one rule by which a time becomes a frame,
/// for playing and exporting alike; `seconds` is never rounded to a timescale before.
bool frameHasBegun(MediaTime pts, double seconds);

}
