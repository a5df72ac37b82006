// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "surfaces/guides/OnboardingAnchors.h"

#include <QPainterPath>
#include <QSizeF>

namespace zumeta {

/// One hole in the layer that dims the window. Lengths in device-independent pixels.
struct SpotlightTargetRect {
    QRectF rect;
    double cornerRadius = 0;
    friend bool operator==(const SpotlightTargetRect&, const SpotlightTargetRect&) = default;
};

/// What the dimming layer covers, and what it leaves open.
struct SpotlightShape {
    std::vector<SpotlightTargetRect> targets; ///< those that a card points at
    std::vector<SpotlightTargetRect> silent;  ///< those that are lit and have no card

    /// Whether there is anything to point at. Without it there is nothing to dim either.
    bool isUsable() const { return !targets.empty(); }
    /// The layer of this size with its holes, to be filled by the even-odd rule.
    QPainterPath path(QSizeF layer) const;
    /// Whether a press at this place is the layer's, and not that of the control in a hole.
    bool takes(QPointF place) const;

    friend bool operator==(const SpotlightShape&, const SpotlightShape&) = default;
};

/// The holes of a card, or two: around what can be seen of its controls, with some room for the ring. A control that
/// can't be seen has none.
SpotlightShape spotlightShape(const InteractiveOnboardingGuideKey& key, const OnboardingAnchors& seen);

/// The holes on their way from one card to the next, 0 to 1. Where the next one has more, they part from the last one
/// of those before.
SpotlightShape betweenSpotlights(const SpotlightShape& from, const SpotlightShape& to, double progress);

}
