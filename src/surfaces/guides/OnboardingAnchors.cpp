// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/guides/OnboardingAnchors.h"

#include <cmath>

namespace zumeta {

namespace {

using enum InteractiveOnboardingTarget;

constexpr double kSmallestSide = 8;

}

void InteractiveOnboardingTargetPreferenceKey::reduce(Value& value, const Value& next)
{
    for (const auto& [target, rect] : next) {
        QRectF& merged = value[target];
        merged = merged.united(rect); // with nothing, that is the other one
    }
}

bool isUsableOnboardingRect(const QRectF& rect)
{
    return std::isfinite(rect.x()) && std::isfinite(rect.y()) && std::isfinite(rect.width()) &&
           std::isfinite(rect.height()) && rect.width() > kSmallestSide && rect.height() > kSmallestSide;
}

std::optional<QRectF> usableAnchor(const OnboardingAnchors& anchors, InteractiveOnboardingTarget target)
{
    const auto found = anchors.find(target);
    if (found == anchors.end() || !isUsableOnboardingRect(found->second))
        return std::nullopt;
    return found->second;
}

bool isInPanel(InteractiveOnboardingTarget target)
{
    switch (target) {
    case lockButton:
    case nextStepButton:
    case step3Adjustments:
    case step4Adjustments:
    case exportButton:
        return true;
    case aboveDropArea:
    case timelineInstruction:
    case timeline:
    case preview:
        return false;
    }
    return false;
}

std::optional<QRectF> panelPartFor(const std::vector<InteractiveOnboardingTarget>& targets,
                                   const OnboardingAnchors& whole)
{
    QRectF part;
    for (const InteractiveOnboardingTarget target : targets) {
        const std::optional<QRectF> rect = usableAnchor(whole, target);
        if (!rect || !isInPanel(target))
            return std::nullopt;
        part = part.united(*rect);
    }
    return part;
}

}
