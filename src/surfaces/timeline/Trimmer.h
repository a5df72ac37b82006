// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "session/TrimMarkers.h"
#include "surfaces/timeline/TrimmerScale.h"

#include <QPointF>
#include <QString>

namespace zumeta {

/// What lies under the pointer.
enum class TrimmerPart {
    nothing,
    track, ///< everything of the box that is no handle and no marker
    startHandle,
    endHandle,
    eitherHandle, ///< both, equally near: the way that a drag takes tells which is meant
    marker
};

struct TrimmerHit {
    TrimmerPart part = TrimmerPart::nothing;
    double marker = 0; ///< the time of the marker, seconds
    friend bool operator==(const TrimmerHit&, const TrimmerHit&) = default;
};

struct MarkerLook {
    double x = 0; ///< of its middle
    QString label;
    bool isSelected = false;
    friend bool operator==(const MarkerLook&, const MarkerLook&) = default;
};

/// What stands on the trimmer, and where: the trims, the markers and the room that the handles leave each other. Places
/// are in its own box, whose top is y 0; the markers rise above it. Times are composite seconds.
struct Trimmer {
    TrimmerScale scale;
    double trimStart = 0; ///< cut from the front
    double trimEnd = 0;   ///< cut from the end
    TrimMarkers markers;

    double startX() const;
    /// Never before the start: trims that have crossed are shown as an empty range.
    double endX() const;

    /// Where a handle goes that the pointer drags to x. The two stay a handle's width apart, whatever time that is.
    double startHandleX(double x) const;
    double endHandleX(double x) const;

    /// Markers lie over the handles and the handles over the rest; the last marker lies over the others. Of two handles
    /// that overlap the nearer one is meant.
    TrimmerHit hit(QPointF place) const;

    /// In the order of the markers, which are numbered from 1.
    std::vector<MarkerLook> markerLooks() const;
};

}
