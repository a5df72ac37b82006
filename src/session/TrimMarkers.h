// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "session/TrimRange.h"

#include <optional>
#include <vector>

namespace zumeta {

/// Times closer than this are the same marker; seconds.
inline constexpr double kMarkerTolerance = 0.05;

/// The marks that the user sets on the composite timeline to come back to, and which of them is selected. Composite
/// seconds. A marker is no part of the range that is kept.
struct TrimMarkers {
    std::vector<double> times;      ///< ascending
    std::optional<double> selected; ///< may lie beside the marker that it means, by less than the tolerance

    /// The earlier one of two that are equally far; none beyond the tolerance, which itself still counts.
    std::optional<double> nearest(double time, double tolerance = kMarkerTolerance) const;
    bool isSelected(double time) const;
    /// Selects the time, and sets a marker there unless a neighbour stands for it.
    void add(double time);
    /// A marker that it is moved over is swallowed. Nothing when none is selected.
    void moveSelected(double time);
    void deleteSelected();

    /// Where the keys stop: the markers in the range and its two ends, ascending, one for each place.
    std::vector<double> stops(const TrimRange& range) const;
    /// The next stop (+1) or the previous one (-1), round in circles, seen from the selected marker. A selection that
    /// is no stop does not count: then it is seen from the playhead.
    double stopBeyond(double playhead, const TrimRange& range, int direction) const;
    /// Selects the marker at a stop; an end of the range alone leaves none selected.
    void selectAtStop(double stop);

    friend bool operator==(const TrimMarkers&, const TrimMarkers&) = default;
};

}
