// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/guides/OnboardingCards.h"

#include <algorithm>

namespace zumeta {

namespace {

using enum InteractiveOnboardingTarget;

constexpr double kHalfWidth = kOnboardingCardWidth / 2;
constexpr double kHalfHeight = kOnboardingCardHeight / 2;
constexpr double kMargin = kOnboardingWindowMargin;
constexpr double kGap = kOnboardingTargetGap;
constexpr double kLeastX = kHalfWidth + kMargin;
constexpr double kLeastY = kHalfHeight + kMargin;
/// Targets whose middle lies farther right have their card at their left.
constexpr double kLeftShare = 0.62;

/// The lower bound wins in a window that is too small.
double held(double value, double least, double most)
{
    return std::max(std::min(value, most), least);
}

QPointF insideOverlay(QPointF place, QSizeF overlay)
{
    return {held(place.x(), kLeastX, overlay.width() - kLeastX), held(place.y(), kLeastY, overlay.height() - kLeastY)};
}

/// Above the target where there is room for a card, else under it.
double commonY(const QRectF& rect, double overlayHeight)
{
    if (rect.top() > kOnboardingCardHeight)
        return rect.top() - kHalfHeight - kGap;
    return std::min(rect.bottom() + kHalfHeight + kGap, overlayHeight - kMargin - kHalfHeight);
}

double commonX(const QRectF& rect, double overlayWidth)
{
    if (rect.center().x() < kLeftShare * overlayWidth)
        return std::min(rect.right() + kHalfWidth + kMargin, overlayWidth - kMargin - kHalfWidth);
    return std::max(rect.left() - kHalfWidth - kMargin, kLeastX);
}

/// In the upper right corner of the picture, where it hides the least of the swimmer.
QPointF inCornerOf(const QRectF& picture)
{
    return {picture.right() - kHalfWidth - kMargin, picture.top() + kHalfHeight + kGap};
}

QPointF unheldPosition(InteractiveOnboardingTarget target, const QRectF& rect, const OnboardingAnchors& anchors,
                       QSizeF overlay)
{
    switch (target) {
    case aboveDropArea:
        if (const std::optional<QRectF> picture = usableAnchor(anchors, preview))
            return inCornerOf(*picture);
        break;
    case timeline:
        return {overlay.width() - kMargin - kHalfWidth - kOnboardingCardWidth - kMargin,
                rect.top() - kHalfHeight - kGap};
    case lockButton:
        return {std::max(rect.right() - kHalfWidth, kLeastX), std::max(rect.top() - kHalfHeight - kGap, kHalfHeight)};
    case preview:
        return inCornerOf(rect);
    case nextStepButton:
        return {std::max(rect.left() - kHalfWidth - kGap, kLeastX), commonY(rect, overlay.height())};
    default:
        break;
    }
    return {commonX(rect, overlay.width()), commonY(rect, overlay.height())};
}

QPointF middle(QSizeF overlay)
{
    return {overlay.width() / 2, overlay.height() / 2};
}

}

QPointF cardPosition(InteractiveOnboardingTarget target, const OnboardingAnchors& anchors, QSizeF overlay)
{
    const std::optional<QRectF> rect = usableAnchor(anchors, target);
    return insideOverlay(rect ? unheldPosition(target, *rect, anchors, overlay) : middle(overlay), overlay);
}

QPointF simultaneousCardPosition(InteractiveOnboardingTarget target, const OnboardingAnchors& anchors, QSizeF overlay)
{
    const std::optional<QRectF> rect = usableAnchor(anchors, target);
    const bool isAdjustments = target == step3Adjustments || target == step4Adjustments;
    if (!rect || !isAdjustments)
        return cardPosition(target, anchors, overlay);
    const QRectF seen = *rect & QRectF(QPointF(), overlay);
    return insideOverlay({std::max(seen.left() - kHalfWidth - kMargin, kLeastX), commonY(seen, overlay.height())},
                         overlay);
}

QRectF cardFrame(QPointF middle, double height, const std::optional<QRectF>& target, QSizeF overlay)
{
    const QRectF usual(middle.x() - kHalfWidth, middle.y() - kHalfHeight, kOnboardingCardWidth, kOnboardingCardHeight);
    const double extra = std::max(height - kOnboardingCardHeight, 0.0);
    const bool growsUp = target && usual.bottom() <= target->top();
    const double top = growsUp ? usual.top() - extra : usual.top();
    const double lowestTop = overlay.height() - kMargin - usual.height() - extra;
    const double leastTop = std::min(usual.top(), kOnboardingLeastTop);
    return {usual.left(), held(top, leastTop, lowestTop), usual.width(), usual.height() + extra};
}

}
