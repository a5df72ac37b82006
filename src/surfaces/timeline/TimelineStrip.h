// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "session/PublishedFields.h"
#include "surfaces/timeline/SliderGesture.h"

#include <QPointF>
#include <QString>

namespace zumeta {

/// What of the session decides how the strip looks. "The side" is the one that the step works on, in Steps 1 and 2.
struct TimelineFacts {
    PublishedFields::WorkflowStep step = PublishedFields::WorkflowStep::step1;
    bool sideHasVideo = false;
    bool sideIsLocked = false;
    bool hasSliderBeenMoved = false;
};

enum class TimelineSlider { simple, trimmer };
TimelineSlider timelineSlider(PublishedFields::WorkflowStep step);
/// Of the box that the slider stands in.
double sliderBoxHeight(PublishedFields::WorkflowStep step);

/// The plain slider rests while its side is locked, because the landmark would be lost, or has no video.
SliderAvailability sliderAvailability(const TimelineFacts& facts);

/// Whether a hint may ever show is decided when the strip is made.
enum class ThumbDragHint { isWanted, isNotWanted };
/// Whether the slider's thumb is explained: as long as the landmark is to be found and the slider was not touched.
bool showsThumbDragHint(const TimelineFacts& facts, ThumbDragHint hint);
/// The hint's centre in the slider's box, whose top left corner is 0, 0.
QPointF hintCentre(const SliderScale& scale, double time);
/// It fades in and out, but goes with the thumb of a drag at once.
bool hintIsAnimated(const SliderGesture& gesture);

/// The hint hangs below the slider, hence a strip that is higher while it may show.
double stripHeight(bool showsHint);

/// What the read-out behind the slider says: the length, or in Step 4 what of it will be exported.
QString lengthText(PublishedFields::WorkflowStep step, double duration, double effectiveExportDuration);
/// In Step 4 the length stands behind its icon, in the accent.
bool lengthHasIcon(PublishedFields::WorkflowStep step);
bool showsFullScreenButton(PublishedFields::WorkflowStep step);

QString playButtonIcon(bool isPlaying);
QString fullScreenIcon(bool isFullScreen);
/// Keys of texts that are in no language yet.
QString fullScreenTooltip(bool isFullScreen);

}
