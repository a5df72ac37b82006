// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "surfaces/timeline/DragResume.h"
#include "surfaces/timeline/TimelineIntent.h"

namespace zumeta {
class CompositorViewModel;

/// Carries out on the session what the gestures of both sliders ask for. One for both: a drag that ends after the
/// slider has changed still lets playback go on. The session must outlive it.
class TimelineActions {
public:
    explicit TimelineActions(CompositorViewModel& session)
        : m_session(session)
    {}

    void carryOut(const TimelineIntents& intents);

private:
    void perform(const DraggingChanged& intent);
    void perform(const Seek& intent);
    void perform(const SliderMoved& intent);
    void perform(const BeginTrimEdit& intent);
    void perform(const SetTrimStart& intent);
    void perform(const SetTrimEnd& intent);
    void perform(const MarkerTapped& intent);
    void perform(const MarkerDragStarted& intent);
    void perform(const MarkerMoved& intent);

    CompositorViewModel& m_session;
    DragResume m_resume;
};

}
