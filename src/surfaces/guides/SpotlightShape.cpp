// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/guides/SpotlightShape.h"

#include <algorithm>

namespace zumeta {

namespace {

using enum InteractiveOnboardingTarget;

/// What a hole is larger than its control, and how round it is: as round as the control, seen from farther out.
struct HoleLook {
    double besideIt;
    double aboveAndBelowIt;
    double cornerRadius;
};

HoleLook holeLook(InteractiveOnboardingTarget target)
{
    switch (target) {
    case lockButton:
    case nextStepButton:
    case exportButton:
        return {4, 4, 16};
    case aboveDropArea:
        return {4, 4, 24};
    case preview: // it may fill its area to the edges
        return {0, 0, 14};
    case step3Adjustments:
    case step4Adjustments: // a title stands close above the rows
        return {8, 4, 14};
    case timelineInstruction: // with the pointer on it
        return {2, 6, 14};
    case timeline:
        break;
    }
    return {6, 6, 14};
}

std::vector<SpotlightTargetRect> holes(const std::vector<InteractiveOnboardingTarget>& targets,
                                       const OnboardingAnchors& seen)
{
    std::vector<SpotlightTargetRect> found;
    for (const InteractiveOnboardingTarget target : targets) {
        const std::optional<QRectF> rect = usableAnchor(seen, target);
        if (!rect)
            continue;
        const HoleLook look = holeLook(target);
        found.push_back({rect->adjusted(-look.besideIt, -look.aboveAndBelowIt, look.besideIt, look.aboveAndBelowIt),
                         look.cornerRadius});
    }
    return found;
}

void addTo(QPainterPath& path, const std::vector<SpotlightTargetRect>& holes)
{
    for (const SpotlightTargetRect& hole : holes)
        path.addRoundedRect(hole.rect, hole.cornerRadius, hole.cornerRadius);
}

/// Holes may overlap: counted together they are still open.
QPainterPath openPart(const SpotlightShape& shape)
{
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    addTo(path, shape.targets);
    addTo(path, shape.silent);
    return path.simplified();
}

double between(double from, double to, double progress)
{
    return from + (to - from) * progress;
}

SpotlightTargetRect between(const SpotlightTargetRect& from, const SpotlightTargetRect& to, double progress)
{
    return {{between(from.rect.x(), to.rect.x(), progress), between(from.rect.y(), to.rect.y(), progress),
             between(from.rect.width(), to.rect.width(), progress),
             between(from.rect.height(), to.rect.height(), progress)},
            between(from.cornerRadius, to.cornerRadius, progress)};
}

}

QPainterPath SpotlightShape::path(QSizeF layer) const
{
    QPainterPath path;
    path.setFillRule(Qt::OddEvenFill);
    path.addRect({QPointF(), layer});
    path.addPath(openPart(*this));
    return path;
}

bool SpotlightShape::takes(QPointF place) const
{
    return !openPart(*this).contains(place);
}

SpotlightShape spotlightShape(const InteractiveOnboardingGuideKey& key, const OnboardingAnchors& seen)
{
    return {holes(cardTargets(key), seen), holes(silentTargets(key), seen)};
}

SpotlightShape betweenSpotlights(const SpotlightShape& from, const SpotlightShape& to, double progress)
{
    if (from.targets.empty())
        return to;
    SpotlightShape shape{{}, to.silent};
    for (size_t i = 0; i < to.targets.size(); ++i)
        shape.targets.push_back(between(from.targets[std::min(i, from.targets.size() - 1)], to.targets[i], progress));
    return shape;
}

}
