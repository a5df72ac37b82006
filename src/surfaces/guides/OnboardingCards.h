// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "surfaces/guides/OnboardingGuide.h"

#include <QPointF>
#include <QRectF>
#include <map>

namespace zumeta {

// Where the cards of the guide stand. Lengths are device-independent pixels, places count from the window's corner.

inline constexpr double kOnboardingCardWidth = 300;
inline constexpr double kOnboardingCardHeight = 190; ///< about; a text may need more
inline constexpr double kOnboardingWindowMargin = 24;
inline constexpr double kOnboardingTargetGap = 18;

using OnboardingAnchors = std::map<InteractiveOnboardingTarget, QRectF>;

/// Whether a control can be lit: it is there, and larger than a dot.
bool isUsableOnboardingRect(const QRectF& rect);
/// The target's rectangle, if it is there and can be lit.
std::optional<QRectF> usableAnchor(const OnboardingAnchors& anchors, InteractiveOnboardingTarget target);

/// The middle of a target's card in an overlay that fills the window. Without a usable rectangle the overlay's middle
/// stands in for the target's.
QPointF cardPosition(InteractiveOnboardingTarget target, const OnboardingAnchors& anchors, QSizeF overlay);
/// The same for one of two cards that are shown at once: the one for the adjustments stays left of the button's.
QPointF simultaneousCardPosition(InteractiveOnboardingTarget target, const OnboardingAnchors& anchors, QSizeF overlay);

}
