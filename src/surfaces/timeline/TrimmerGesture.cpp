// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/timeline/TrimmerGesture.h"

#include "surfaces/timeline/TimelineMetrics.h"

#include <cmath>
#include <utility>

namespace zumeta {
namespace {

void append(TimelineIntents& intents, const TimelineIntents& more)
{
    intents.insert(intents.end(), more.begin(), more.end());
}

}

TimelineIntents TrimmerGesture::press(QPointF place, const Trimmer& trimmer)
{
    // A release that never came must not leave the session in a drag.
    TimelineIntents intents = cancel();
    m_pressed = trimmer.hit(place);
    m_pressPlace = place;
    m_place = place;
    if (m_pressed.part == TrimmerPart::nothing)
        return intents;
    if (m_pressed.part == TrimmerPart::marker) {
        m_state = State::markerPressed;
        return intents;
    }
    m_state = State::seeking;
    begin(intents);
    append(intents, seek(trimmer));
    return intents;
}

TimelineIntents TrimmerGesture::move(QPointF place, const Trimmer& trimmer)
{
    // Without any width every place would mean the start.
    if (trimmer.scale.width <= 0)
        return {};
    m_place = place;
    switch (m_state) {
    case State::idle:
        return {};
    case State::seeking:
        return isHandlePressed() && distanceFromPress() >= kHandleDragDistance ? beginHandleDrag(trimmer)
                                                                               : seek(trimmer);
    case State::draggingStart:
    case State::draggingEnd:
        return dragHandle(trimmer);
    case State::markerPressed: {
        if (distanceFromPress() < kMarkerDragDistance)
            return {};
        m_state = State::draggingMarker;
        TimelineIntents intents;
        begin(intents);
        intents.push_back(MarkerDragStarted{m_pressed.marker});
        append(intents, dragMarker(trimmer));
        return intents;
    }
    case State::draggingMarker:
        return dragMarker(trimmer);
    }
    return {};
}

TimelineIntents TrimmerGesture::release(QPointF place, const Trimmer& trimmer)
{
    TimelineIntents intents = place == m_place ? TimelineIntents{} : move(place, trimmer);
    if (m_state == State::markerPressed)
        intents.push_back(MarkerTapped{m_pressed.marker});
    append(intents, cancel());
    return intents;
}

TimelineIntents TrimmerGesture::cancel()
{
    TimelineIntents intents;
    const State state = std::exchange(m_state, State::idle);
    if (state != State::idle && state != State::markerPressed)
        end(intents);
    return intents;
}

std::optional<double> TrimmerGesture::markerDragStartTime() const
{
    return m_state == State::draggingMarker ? std::optional(m_pressed.marker) : std::nullopt;
}

void TrimmerGesture::begin(TimelineIntents& intents)
{
    if (const std::optional<DraggingChanged> report = m_count.beginDragIfNeeded(DragCount::Change::begins))
        intents.push_back(*report);
}

void TrimmerGesture::end(TimelineIntents& intents)
{
    if (const std::optional<DraggingChanged> report = m_count.endDragIfNeeded())
        intents.push_back(*report);
}

TimelineIntents TrimmerGesture::seek(const Trimmer& trimmer) const
{
    return {Seek{trimmer.scale.playheadTime(trimmer.scale.time(m_place.x()))}};
}

TimelineIntents TrimmerGesture::beginHandleDrag(const Trimmer& trimmer)
{
    TimelineIntents intents;
    // The seek of the press ends only after the handle's drag has begun, so that nothing looks like a pause between.
    begin(intents);
    end(intents);
    const bool isStart = m_pressed.part == TrimmerPart::startHandle ||
                         (m_pressed.part == TrimmerPart::eitherHandle && m_place.x() < m_pressPlace.x());
    m_state = isStart ? State::draggingStart : State::draggingEnd;
    intents.push_back(BeginTrimEdit{});
    append(intents, dragHandle(trimmer));
    return intents;
}

TimelineIntents TrimmerGesture::dragHandle(const Trimmer& trimmer) const
{
    const TrimmerScale& scale = trimmer.scale;
    if (isDraggingStart()) {
        const double time = scale.time(trimmer.startHandleX(m_place.x()));
        return {SetTrimStart{time}, Seek{scale.playheadTime(time)}};
    }
    const double time = scale.time(trimmer.endHandleX(m_place.x()));
    return {SetTrimEnd{scale.safeDuration() - time}, Seek{scale.playheadTime(time)}};
}

TimelineIntents TrimmerGesture::dragMarker(const Trimmer& trimmer) const
{
    // Relative to where the drag began: a marker that is taken at its edge does not jump under the pointer.
    const double x = trimmer.scale.xPosition(m_pressed.marker) + m_place.x() - m_pressPlace.x();
    return {MarkerMoved{trimmer.scale.time(x)}};
}

bool TrimmerGesture::isHandlePressed() const
{
    return m_pressed.part == TrimmerPart::startHandle || m_pressed.part == TrimmerPart::endHandle ||
           m_pressed.part == TrimmerPart::eitherHandle;
}

double TrimmerGesture::distanceFromPress() const
{
    return std::hypot(m_place.x() - m_pressPlace.x(), m_place.y() - m_pressPlace.y());
}

}
