// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/preview/PreviewGuides.h"

#include "render/CompositeGeometry.h"
#include "surfaces/preview/PreviewPointer.h"
#include "surfaces/preview/PreviewSurface.h"

#include <cmath>

namespace zumeta {

namespace {

using WorkflowStep = PublishedFields::WorkflowStep;

/// The side whose video the step is about.
std::optional<Side> sideOf(WorkflowStep step)
{
    switch (step) {
    case WorkflowStep::step1:
        return Side::above;
    case WorkflowStep::step2:
        return Side::below;
    case WorkflowStep::step3:
    case WorkflowStep::step4:
        return std::nullopt;
    }
    return std::nullopt;
}

}

std::optional<double> getFixedNormalizedPoint(WorkflowStep step, const AlignmentPoints& points)
{
    const std::optional<Side> side = sideOf(step);
    return side ? points[*side] : std::nullopt;
}

double normalizedToScreenY(double point, Size overlay, AspectRatio projectAspectRatio)
{
    return hoverHeight(point, calculateVideoContentRect(overlay, projectAspectRatio));
}

std::vector<AlignmentLine> alignmentLines(const AlignmentFacts& facts)
{
    std::vector<AlignmentLine> lines;
    if (!sideOf(facts.currentStep))
        return lines;
    std::optional<double> fixedHeight;
    if (const std::optional<double> point = getFixedNormalizedPoint(facts.currentStep, facts.alignmentPoints)) {
        fixedHeight = normalizedToScreenY(*point, facts.overlay, facts.projectAspectRatio);
        lines.push_back({itemY(*fixedHeight, facts.overlay), true});
    }
    if (!facts.hoverY)
        return lines;
    // On the screen, because one is in points and the other a fraction.
    if (!fixedHeight || std::abs(*facts.hoverY - *fixedHeight) >= kSameLineDistance)
        lines.push_back({itemY(*facts.hoverY, facts.overlay), false});
    return lines;
}

QString alignmentLabelKey(WorkflowStep step)
{
    const std::optional<Side> side = sideOf(step);
    if (!side)
        return {};
    return *side == Side::above ? QStringLiteral("Above") : QStringLiteral("Below");
}

double waterlineIndicatorY(Size bounds, const SurfaceValues& values)
{
    const VideoCompositionConfig geometry = values.geometry();
    return itemY(heightOfWaterline(geometry.waterlineHeight, geometry.scaleFactor()) * bounds.height, bounds);
}

bool verticalGuideLineLocked(WorkflowStep step, const Sides<std::optional<double>>& manualSyncTime)
{
    const std::optional<Side> side = sideOf(step);
    return side && manualSyncTime[*side].has_value();
}

VerticalGuideLook verticalGuideLook(bool isTimelineSliderDragging, bool isLocked)
{
    if (!isTimelineSliderDragging && !isLocked)
        return {};
    return {.isActive = true, .hasLockBadge = isLocked, .lineWidth = 2, .lineOpacity = 1, .bandOpacity = 0.28};
}

double verticalGuideX(Size bounds)
{
    return bounds.width / 2;
}

}
