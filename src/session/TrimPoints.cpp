// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/CompositorViewModel.h"
#include "session/TrimRange.h"

namespace zumeta {

double CompositorViewModel::trimEndPosition() const
{
    return zumeta::trimEndPosition(m_fields.projectConfig, m_fields.duration);
}

bool CompositorViewModel::isCurrentTimeAssignedToTrimStart() const
{
    return isSameTrimPoint(m_fields.currentTime, trimStart());
}

bool CompositorViewModel::isCurrentTimeAssignedToTrimEnd() const
{
    return isSameTrimPoint(m_fields.currentTime, trimEndPosition());
}

void CompositorViewModel::moveTrimStart(double position, double shortestRange)
{
    const Operation operation(*this);
    double start = 0;
    editConfig([&](VideoCompositionConfig& config) {
        start = zumeta::setTrimStart(config, position, m_fields.duration, shortestRange);
    });
    seek(start, true);
}

void CompositorViewModel::moveTrimEnd(double position, double shortestRange)
{
    const Operation operation(*this);
    double end = 0;
    editConfig([&](VideoCompositionConfig& config) {
        end = zumeta::setTrimEnd(config, position, m_fields.duration, shortestRange);
    });
    seek(end, true);
}

void CompositorViewModel::setTrimStart(double seconds)
{
    moveTrimStart(seconds, kShortestRangeOfRows);
}

void CompositorViewModel::setTrimEndPosition(double position)
{
    moveTrimEnd(position, kShortestRangeOfRows);
}

void CompositorViewModel::applySelectedMarkerToTrimStart()
{
    const Operation operation(*this);
    recordStepEditUndoSnapshot();
    moveTrimStart(m_fields.currentTime, kShortestRangeAtPlayhead);
}

void CompositorViewModel::applySelectedMarkerToTrimEnd()
{
    const Operation operation(*this);
    recordStepEditUndoSnapshot();
    moveTrimEnd(m_fields.currentTime, kShortestRangeAtPlayhead);
}

void CompositorViewModel::applyCurrentTimeToTrimStartIfAllowed()
{
    if (!isCurrentTimeAssignedToTrimEnd())
        applySelectedMarkerToTrimStart();
}

void CompositorViewModel::applyCurrentTimeToTrimEndIfAllowed()
{
    if (!isCurrentTimeAssignedToTrimStart())
        applySelectedMarkerToTrimEnd();
}

void CompositorViewModel::resetTrimRange()
{
    const Operation operation(*this);
    recordStepEditUndoSnapshot();
    editConfig([](VideoCompositionConfig& config) {
        config.exportTrimStartSeconds = 0;
        config.exportTrimEndSeconds = 0;
    });
    seek(0, true);
}

void CompositorViewModel::addTrimMarkerAtCurrentTime()
{
    if (m_fields.duration <= 0)
        return;
    const Operation operation(*this);
    recordStepEditUndoSnapshot();
    m_fields.trimMarkers.add(std::clamp(m_fields.currentTime, 0.0, m_fields.duration));
}

double CompositorViewModel::markerMeantBy(double time) const
{
    const double inside = std::clamp(time, 0.0, m_fields.duration);
    return m_fields.trimMarkers.nearest(inside).value_or(inside);
}

void CompositorViewModel::goToMarker(double time)
{
    pause();
    m_fields.trimMarkers.selected = time;
    seek(time, true);
}

void CompositorViewModel::selectTrimMarker(double time)
{
    const Operation operation(*this);
    recordStepEditUndoSnapshot();
    const double marker = markerMeantBy(time);
    if (m_fields.trimMarkers.isSelected(marker))
        m_fields.trimMarkers.selected.reset();
    else
        goToMarker(marker);
}

void CompositorViewModel::selectTrimMarkerForEditing(double time)
{
    const Operation operation(*this);
    recordStepEditUndoSnapshot();
    goToMarker(markerMeantBy(time));
}

void CompositorViewModel::updateSelectedTrimMarker(double time)
{
    if (m_fields.duration <= 0 || !m_fields.trimMarkers.selected)
        return;
    const Operation operation(*this);
    recordStepEditUndoSnapshot();
    const double inside = std::clamp(time, 0.0, m_fields.duration);
    m_fields.trimMarkers.moveSelected(inside);
    seek(inside, true);
}

void CompositorViewModel::deleteSelectedTrimMarker()
{
    if (!m_fields.trimMarkers.selected)
        return;
    const Operation operation(*this);
    recordStepEditUndoSnapshot();
    m_fields.trimMarkers.deleteSelected();
}

void CompositorViewModel::clearTimelineMarkers()
{
    const Operation operation(*this);
    recordStepEditUndoSnapshot();
    m_fields.trimMarkers = {};
}

void CompositorViewModel::navigateTrimMarker(int direction)
{
    if (m_fields.currentStep != WorkflowStep::step4 || m_fields.duration <= 0)
        return;
    const Operation operation(*this);
    recordStepEditUndoSnapshot();
    const TrimRange range = TrimRange::of(m_fields.projectConfig, m_fields.duration).within(m_fields.duration);
    const double stop = m_fields.trimMarkers.stopBeyond(m_fields.currentTime, range, direction);
    pause();
    m_fields.trimMarkers.selectAtStop(stop);
    seek(stop, true);
}

}
