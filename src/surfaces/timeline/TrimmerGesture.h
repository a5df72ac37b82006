// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "surfaces/timeline/DragCount.h"
#include "surfaces/timeline/Trimmer.h"

namespace zumeta {

/// The gestures of the trimmer, which all belong to one pointer. Each call gives what is to be carried out.
///
/// A press that is on no marker seeks at once, on a handle too: it may be meant as a click. Only a longer way makes it
/// a drag of the handle, which then goes to the pointer; to the session both are one drag. A press on a marker waits:
/// with the first movement it is a drag and never a tap, without any it is a tap at the release.
///
/// The trimmer is handed in as it stands at each event, because what the gesture asks for changes it.
class TrimmerGesture {
public:
    TimelineIntents press(QPointF place, const Trimmer& trimmer);
    TimelineIntents move(QPointF place, const Trimmer& trimmer);
    /// A place that no movement has told of yet is gone to first.
    TimelineIntents release(QPointF place, const Trimmer& trimmer);
    /// The pointer was taken away, or the trimmer goes: what is dragged stays as after a release. It makes no tap.
    TimelineIntents cancel();

    bool isDraggingTime() const { return m_state == State::seeking; }
    bool isDraggingStart() const { return m_state == State::draggingStart; }
    bool isDraggingEnd() const { return m_state == State::draggingEnd; }
    /// While a handle is dragged it stands alone, although the playhead goes with it.
    bool showsPlayhead() const { return !isDraggingStart() && !isDraggingEnd(); }
    /// The time that the dragged marker had before.
    std::optional<double> markerDragStartTime() const;
    int activeDragCount() const { return m_count.activeDragCount(); }

private:
    enum class State { idle, seeking, draggingStart, draggingEnd, markerPressed, draggingMarker };

    void begin(TimelineIntents& intents);
    void end(TimelineIntents& intents);
    TimelineIntents seek(const Trimmer& trimmer) const;
    TimelineIntents beginHandleDrag(const Trimmer& trimmer);
    TimelineIntents dragHandle(const Trimmer& trimmer) const;
    TimelineIntents dragMarker(const Trimmer& trimmer) const;
    bool isHandlePressed() const;
    double distanceFromPress() const;

    State m_state = State::idle;
    TrimmerHit m_pressed;
    QPointF m_pressPlace;
    QPointF m_place; ///< of the pointer, as it was last told
    DragCount m_count;
};

}
