// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/timeline/TimelineActions.h"

#include "session/CompositorViewModel.h"

namespace zumeta {

void TimelineActions::carryOut(const TimelineIntents& intents)
{
    for (const TimelineIntent& intent : intents)
        std::visit([this](const auto& kind) { perform(kind); }, intent);
}

void TimelineActions::perform(const DraggingChanged& intent)
{
    // First, so that playback which begins or ends now already finds the session in or out of the drag.
    m_session.setTimelineSliderDragging(intent.isDragging);
    switch (m_resume.draggingChanged(intent.isDragging, m_session.isPlaying())) {
    case DragResume::Playback::stays:
        break;
    case DragResume::Playback::pauses:
        m_session.pause();
        break;
    case DragResume::Playback::plays:
        m_session.play();
        break;
    }
}

void TimelineActions::perform(const Seek& intent)
{
    m_session.seek(intent.time, true);
}

void TimelineActions::perform(const SliderMoved&)
{
    m_session.setHasSliderBeenMoved(true);
}

void TimelineActions::perform(const BeginTrimEdit&)
{
    m_session.beginStep4Adjustment();
}

// A handle keeps its own distance, so its trims go in as they are and not through the limits of the numeric rows.

void TimelineActions::perform(const SetTrimStart& intent)
{
    VideoCompositionConfig config = m_session.projectConfig();
    config.exportTrimStartSeconds = intent.seconds;
    m_session.setProjectConfig(config);
}

void TimelineActions::perform(const SetTrimEnd& intent)
{
    VideoCompositionConfig config = m_session.projectConfig();
    config.exportTrimEndSeconds = intent.seconds;
    m_session.setProjectConfig(config);
}

void TimelineActions::perform(const MarkerTapped& intent)
{
    m_session.selectTrimMarker(intent.marker);
}

void TimelineActions::perform(const MarkerDragStarted& intent)
{
    m_session.selectTrimMarkerForEditing(intent.marker);
}

void TimelineActions::perform(const MarkerMoved& intent)
{
    m_session.updateSelectedTrimMarker(intent.time);
}

}
