// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/timeline/TimelineStrip.h"

#include "surfaces/timeline/TimeText.h"
#include "surfaces/timeline/TimelineMetrics.h"

namespace zumeta {
namespace {

using WorkflowStep = PublishedFields::WorkflowStep;

bool isSideStep(WorkflowStep step)
{
    return step == WorkflowStep::step1 || step == WorkflowStep::step2;
}

}

TimelineSlider timelineSlider(WorkflowStep step)
{
    return step == WorkflowStep::step4 ? TimelineSlider::trimmer : TimelineSlider::simple;
}

double sliderBoxHeight(WorkflowStep step)
{
    return timelineSlider(step) == TimelineSlider::trimmer ? kTrimmerFrameHeight : kSliderHeight;
}

SliderAvailability sliderAvailability(const TimelineFacts& facts)
{
    const bool isFree = !isSideStep(facts.step) || (facts.sideHasVideo && !facts.sideIsLocked);
    return isFree ? SliderAvailability::enabled : SliderAvailability::disabled;
}

bool showsThumbDragHint(const TimelineFacts& facts, ThumbDragHint hint)
{
    return hint == ThumbDragHint::isWanted && isSideStep(facts.step) && facts.sideHasVideo && !facts.sideIsLocked &&
           !facts.hasSliderBeenMoved;
}

QPointF hintCentre(const SliderScale& scale, double time)
{
    return {scale.thumbCentre(time), kSliderHeight / 2 + kHintBelowMiddle};
}

bool hintIsAnimated(const SliderGesture& gesture)
{
    return !gesture.isDragging();
}

double stripHeight(bool showsHint)
{
    const double plain = 2 * kStripVerticalPadding + kPlayButtonRingSize;
    return showsHint ? plain + kStripStackSpacing + kHintRowHeight : plain;
}

QString lengthText(WorkflowStep step, double duration, double effectiveExportDuration)
{
    return step == WorkflowStep::step4 ? formatDuration(effectiveExportDuration) : formatTimeWithFrames(duration);
}

bool lengthHasIcon(WorkflowStep step)
{
    return step == WorkflowStep::step4;
}

bool showsFullScreenButton(WorkflowStep step)
{
    return !isSideStep(step);
}

QString playButtonIcon(bool isPlaying)
{
    return isPlaying ? QStringLiteral("pause.fill") : QStringLiteral("play.fill");
}

QString fullScreenIcon(bool isFullScreen)
{
    return isFullScreen ? QStringLiteral("arrow.down.right.and.arrow.up.left")
                        : QStringLiteral("arrow.up.left.and.arrow.down.right");
}

QString fullScreenTooltip(bool isFullScreen)
{
    return isFullScreen ? QStringLiteral("Exit Full Screen") : QStringLiteral("Enter Full Screen");
}

}
