// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/CompositorViewModel.h"
#include "session/WaterlinePick.h"

#include <QPointer>

namespace zumeta {

void CompositorViewModel::toggleLock(Side side)
{
    const Operation operation(*this);
    if (!m_fields.manualSyncTime[side]) {
        pause();
        markSync(side);
        setAlignmentState(side == Side::above ? AlignmentState::pickingAbove : AlignmentState::pickingBelow);
        return;
    }
    // The values of the earlier pick stay in force until a new pair of clicks replaces them.
    m_fields.manualSyncTime[side].reset();
    m_fields.alignmentPoints[side].reset();
    setStartTime(side, 0);
    editConfig([](VideoCompositionConfig& config) { config.isSynced = false; });
    m_fields.syncStatusMessage.reset();
    setAlignmentState(AlignmentState::none);
    const WorkflowStep ownStep = side == Side::above ? WorkflowStep::step1 : WorkflowStep::step2;
    m_fields.maxReachedStep = std::min(m_fields.maxReachedStep, ownStep);
}

void CompositorViewModel::markSync(Side side)
{
    const Operation operation(*this);
    player(side).pause();
    playerService(side).setPlaying(false);
    // What the timeline shows, not a fresh look at the player: the lock sits where the user saw it.
    const double time = std::clamp(m_fields.currentTime, 0.0, playerService(side).duration());
    m_fields.currentTime = time;
    m_fields.manualSyncTime[side] = time;
    setStartTime(side, time);
    const bool isSynced = m_fields.manualSyncTime[otherSide(side)].has_value();
    editConfig([isSynced](VideoCompositionConfig& config) { config.isSynced = isSynced; });
}

void CompositorViewModel::restoreManualSyncTimes(const VideoCompositionConfig& config)
{
    const Operation operation(*this);
    if (config.isSynced)
        m_fields.manualSyncTime = {config.aboveStartTime, config.belowStartTime};
    else
        m_fields.manualSyncTime = {};
}

void CompositorViewModel::onPickWaterline(double y)
{
    m_environment.queue.post([self = QPointer(this), y] {
        if (self)
            self->takeWaterlinePick(y);
    });
}

void CompositorViewModel::takeWaterlinePick(double y)
{
    const Operation operation(*this);
    if (m_fields.alignmentState == AlignmentState::none)
        return;
    const Side side = m_fields.alignmentState == AlignmentState::pickingAbove ? Side::above : Side::below;
    editConfig([&](VideoCompositionConfig& config) {
        pickWaterline(side, y, m_fields.alignmentPoints, config, m_fields.selectedCamera);
    });
}

void CompositorViewModel::onHover(std::optional<double> y)
{
    m_environment.queue.post([self = QPointer(this), y] {
        if (self)
            self->assign(self->m_fields.hoverY,
                         self->m_fields.alignmentState == AlignmentState::none ? std::nullopt : y);
    });
}

void CompositorViewModel::setAboveZoom(double value)
{
    editConfig([value](VideoCompositionConfig& config) { config.aboveZoom = value; });
}

void CompositorViewModel::setBlendAmount(double value)
{
    editConfig([value](VideoCompositionConfig& config) { config.blendAmount = value; });
}

void CompositorViewModel::setTimingOffset(double value)
{
    const Operation operation(*this);
    editConfig([value](VideoCompositionConfig& config) { config.timingOffset = value; });
    if (isCompositeStep())
        rebuildPreviewForTimingChange();
    else
        seek(m_fields.currentTime, true);
}

double CompositorViewModel::relativeWaterlineHeight() const
{
    return m_fields.projectConfig.waterlineHeight - m_bases.waterlineHeight;
}

void CompositorViewModel::setRelativeWaterlineHeight(double value)
{
    editConfig([&](VideoCompositionConfig& config) { config.waterlineHeight = value + m_bases.waterlineHeight; });
}

double CompositorViewModel::relativeAboveOffset() const
{
    return m_fields.projectConfig.aboveOffset - m_bases.aboveOffset;
}

void CompositorViewModel::setRelativeAboveOffset(double value)
{
    editConfig([&](VideoCompositionConfig& config) { config.aboveOffset = value + m_bases.aboveOffset; });
}

double CompositorViewModel::relativeAboveHorizontalOffset() const
{
    return m_fields.projectConfig.aboveHorizontalOffset - m_bases.aboveHorizontalOffset;
}

void CompositorViewModel::setRelativeAboveHorizontalOffset(double value)
{
    editConfig(
        [&](VideoCompositionConfig& config) { config.aboveHorizontalOffset = value + m_bases.aboveHorizontalOffset; });
}

}
