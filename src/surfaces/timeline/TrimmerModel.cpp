// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/timeline/TrimmerModel.h"

#include "session/CompositorViewModel.h"
#include "surfaces/timeline/TimelineActions.h"

#include <utility>

namespace zumeta {

TrimmerModel::TrimmerModel(CompositorViewModel& session, TimelineActions& actions, QObject* parent)
    : QObject(parent)
    , m_session(session)
    , m_actions(actions)
{
    connect(&session, &CompositorViewModel::currentTimeChanged, this, &TrimmerModel::playheadChanged);
    for (const auto signal : {&CompositorViewModel::durationChanged, &CompositorViewModel::projectConfigChanged})
        connect(&session, signal, this, &TrimmerModel::placesChanged);
    for (const auto signal : {&CompositorViewModel::trimMarkersChanged, &CompositorViewModel::selectedTrimMarkerChanged,
                              &CompositorViewModel::durationChanged})
        connect(&session, signal, this, &TrimmerModel::showMarkers);
    connect(this, &TrimmerModel::placesChanged, this, &TrimmerModel::playheadChanged);
}

void TrimmerModel::setWidth(double width)
{
    if (std::exchange(m_width, width) == width)
        return;
    showMarkers();
    Q_EMIT placesChanged();
}

double TrimmerModel::playheadX() const
{
    return scale().xPosition(m_session.currentTime());
}

Qt::CursorShape TrimmerModel::cursorShape() const
{
    switch (m_partUnderPointer) {
    case TrimmerPart::startHandle:
    case TrimmerPart::endHandle:
    case TrimmerPart::eitherHandle:
        return Qt::SizeHorCursor;
    case TrimmerPart::marker:
        return m_gesture.markerDragStartTime() ? Qt::ClosedHandCursor : Qt::PointingHandCursor;
    case TrimmerPart::nothing:
    case TrimmerPart::track:
        break;
    }
    return Qt::PointingHandCursor;
}

bool TrimmerModel::contains(const QPointF& place) const
{
    return trimmer().hit(place).part != TrimmerPart::nothing;
}

void TrimmerModel::press(double x, double y)
{
    m_partUnderPointer = trimmer().hit({x, y}).part;
    m_isPressed = true;
    carryOut(m_gesture.press({x, y}, trimmer()));
}

void TrimmerModel::move(double x, double y)
{
    if (!m_isPressed)
        m_partUnderPointer = trimmer().hit({x, y}).part;
    carryOut(m_gesture.move({x, y}, trimmer()));
}

void TrimmerModel::release(double x, double y)
{
    m_isPressed = false;
    carryOut(m_gesture.release({x, y}, trimmer()));
    move(x, y);
}

void TrimmerModel::cancel()
{
    m_isPressed = false;
    carryOut(m_gesture.cancel());
}

void TrimmerModel::tapMarker(int row)
{
    const std::vector<double>& markers = m_session.trimMarkers();
    if (row >= 0 && std::size_t(row) < markers.size())
        m_actions.carryOut({MarkerTapped{markers[std::size_t(row)]}});
}

TrimmerScale TrimmerModel::scale() const
{
    return {m_width, m_session.duration()};
}

Trimmer TrimmerModel::trimmer() const
{
    const VideoCompositionConfig& config = m_session.projectConfig();
    return {scale(),
            config.exportTrimStartSeconds,
            config.exportTrimEndSeconds,
            {m_session.trimMarkers(), m_session.selectedTrimMarker()}};
}

void TrimmerModel::carryOut(const TimelineIntents& intents)
{
    Q_EMIT gestureChanged();
    m_actions.carryOut(intents);
}

}
