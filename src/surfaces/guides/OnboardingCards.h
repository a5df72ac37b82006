// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "surfaces/guides/OnboardingAnchors.h"

#include <QPointF>

namespace zumeta {

// Where the cards of the guide stand. Lengths are device-independent pixels, places count from the window's corner.

inline constexpr double kOnboardingCardWidth = 300;
inline constexpr double kOnboardingCardHeight = 190; ///< about; a text may need more
inline constexpr double kOnboardingWindowMargin = 24;
inline constexpr double kOnboardingTargetGap = 18;
inline constexpr double kOnboardingLeastTop = 36; ///< of a card that has grown: clear of the menu bar

/// The middle of a target's card in an overlay that fills the window. Without a usable rectangle the overlay's middle
/// stands in for the target's.
QPointF cardPosition(InteractiveOnboardingTarget target, const OnboardingAnchors& anchors, QSizeF overlay);
/// The same for one of two cards that are shown at once: the one for the adjustments stays left of the button's.
QPointF simultaneousCardPosition(InteractiveOnboardingTarget target, const OnboardingAnchors& anchors, QSizeF overlay);

/// Where a card of this height stands whose place was computed for the usual one: what it is higher, it grows away from
/// its target, and it stays in the overlay.
QRectF cardFrame(QPointF middle, double height, const std::optional<QRectF>& target, QSizeF overlay);

}
