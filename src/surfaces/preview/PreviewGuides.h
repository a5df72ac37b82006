// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "session/WaterlinePick.h"
#include "surfaces/preview/SurfaceValues.h"

#include <QString>
#include <vector>

namespace zumeta {

/// The fixed point of the step: what was picked in its own video. None in Steps 3 and 4.
std::optional<double> getFixedNormalizedPoint(PublishedFields::WorkflowStep step, const AlignmentPoints& points);

/// A fraction of the picture's height as a height above the overlay's lower edge, where the picture is fitted into the
/// overlay.
double normalizedToScreenY(double point, Size overlay, AspectRatio projectAspectRatio);

/// A line across the overlay: a soft band, and the line itself in its middle.
struct AlignmentLine {
    double y = 0;         ///< of the middle, downward from the overlay's upper edge
    bool isFixed = false; ///< the picked one, with a label; else the pointer's
    friend bool operator==(const AlignmentLine&, const AlignmentLine&) = default;
};
inline constexpr double kAlignmentBandHeight = 8;
inline constexpr double kAlignmentBandOpacity = 0.3;
inline constexpr double kAlignmentLineHeight = 2;
inline constexpr double kAlignmentLabelOpacity = 0.8;
/// Lines nearer than this, in points, stand on the same pixels of every display.
inline constexpr double kSameLineDistance = 0.25;

struct AlignmentFacts {
    PublishedFields::WorkflowStep currentStep = PublishedFields::WorkflowStep::step1;
    AlignmentPoints alignmentPoints{};
    std::optional<double> hoverY{}; ///< above the surface's lower edge
    Size overlay;                   ///< lies exactly on the surface
    AspectRatio projectAspectRatio{};
};
/// The fixed line first. Where the pointer is on it, there is no second one.
std::vector<AlignmentLine> alignmentLines(const AlignmentFacts& facts);
/// Of the fixed line: which video it was picked in. Empty where there is none.
QString alignmentLabelKey(PublishedFields::WorkflowStep step);

/// Where the waterline runs: it does not follow the offset of the above picture. Downward from the upper edge.
double waterlineIndicatorY(Size bounds, const SurfaceValues& values);

/// Locked: the video of Step 1 or 2 has its sync point.
bool verticalGuideLineLocked(PublishedFields::WorkflowStep step, const Sides<std::optional<double>>& manualSyncTime);

/// The guide line at the middle of the view. Active while the timeline is dragged, and where the side is locked.
struct VerticalGuideLook {
    bool isActive = false;
    bool hasLockBadge = false;
    double lineWidth = 1;
    double lineOpacity = 0.8;
    double bandOpacity = 0;
    friend bool operator==(const VerticalGuideLook&, const VerticalGuideLook&) = default;
};
inline constexpr double kVerticalGuideBandWidth = 8;
VerticalGuideLook verticalGuideLook(bool isTimelineSliderDragging, bool isLocked);
double verticalGuideX(Size bounds);

}
