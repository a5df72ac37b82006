// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/timeline/Trimmer.h"

#include "surfaces/timeline/TimelineMetrics.h"

#include <QRectF>
#include <algorithm>
#include <cmath>

namespace zumeta {
namespace {

/// Without its right and lower edge, so that boxes side by side share no place.
bool contains(const QRectF& box, QPointF place)
{
    return place.x() >= box.left() && place.x() < box.right() && place.y() >= box.top() && place.y() < box.bottom();
}

QRectF markerBox(double x)
{
    return {x - kMarkerWidth / 2, -kMarkerAboveTop - kMarkerHeight / 2, kMarkerWidth, kMarkerHeight};
}

QRectF handleBox(double x)
{
    return {x - kHandleWidth / 2, 0, kHandleWidth, kTrimmerFrameHeight};
}

}

double Trimmer::startX() const
{
    return scale.xPosition(trimStart);
}

double Trimmer::endX() const
{
    return std::max(scale.xPosition(scale.safeDuration() - trimEnd), startX());
}

double Trimmer::startHandleX(double x) const
{
    return std::max(std::min(x, endX() - kHandleWidth), scale.inset());
}

double Trimmer::endHandleX(double x) const
{
    return std::max(std::min(x, scale.width - scale.inset()), startX() + kHandleWidth);
}

TrimmerHit Trimmer::hit(QPointF place) const
{
    if (scale.width <= 0)
        return {};
    const auto isUnderPlace = [&](double marker) { return contains(markerBox(scale.xPosition(marker)), place); };
    const auto marker = std::find_if(markers.times.rbegin(), markers.times.rend(), isUnderPlace);
    if (marker != markers.times.rend())
        return {TrimmerPart::marker, *marker};

    const bool isOnStart = contains(handleBox(startX()), place);
    const bool isOnEnd = contains(handleBox(endX()), place);
    if (isOnStart && isOnEnd) {
        const double toStart = std::abs(place.x() - startX());
        const double toEnd = std::abs(place.x() - endX());
        if (toStart == toEnd)
            return {TrimmerPart::eitherHandle};
        return {toStart < toEnd ? TrimmerPart::startHandle : TrimmerPart::endHandle};
    }
    if (isOnStart || isOnEnd)
        return {isOnStart ? TrimmerPart::startHandle : TrimmerPart::endHandle};
    return {contains({0, 0, scale.width, kTrimmerFrameHeight}, place) ? TrimmerPart::track : TrimmerPart::nothing};
}

std::vector<MarkerLook> Trimmer::markerLooks() const
{
    std::vector<MarkerLook> looks;
    looks.reserve(markers.times.size());
    for (const double marker : markers.times) {
        const QString label = QStringLiteral("M%1").arg(looks.size() + 1);
        looks.push_back({scale.xPosition(marker), label, markers.isSelected(marker)});
    }
    return looks;
}

}
