// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/CompositorViewModel.h"

namespace zumeta {

void CompositorViewModel::setCurrentStep(WorkflowStep step)
{
    const Operation operation(*this);
    const WorkflowStep oldStep = std::exchange(m_fields.currentStep, step);
    stepChanged(oldStep);
}

void CompositorViewModel::stepChanged(WorkflowStep oldStep)
{
    const WorkflowStep step = m_fields.currentStep;
    m_fields.maxReachedStep = std::max(m_fields.maxReachedStep, step);
    m_fields.hasSliderBeenMoved = false;
    switch (step) {
    case WorkflowStep::step1:
        m_fields.isFullScreen = false;
        enterSideStep(Side::above, oldStep);
        break;
    case WorkflowStep::step2:
        m_fields.isFullScreen = false;
        enterSideStep(Side::below, oldStep);
        break;
    case WorkflowStep::step3:
        m_fields.hasInteractedWithStep3Adjustments = false;
        enterStep3(oldStep);
        break;
    case WorkflowStep::step4:
        m_fields.hasInteractedWithStep4ExportControls = false;
        enterStep4(oldStep);
        break;
    }
}

void CompositorViewModel::enterSideStep(Side side, WorkflowStep oldStep)
{
    updateDuration();
    m_fields.viewMode = side == Side::above ? ViewMode::aboveOnly : ViewMode::belowOnly;
    setAlignmentState(AlignmentState::none);
    if (const std::optional<double> syncTime = m_fields.manualSyncTime[side]) {
        m_fields.currentTime = *syncTime;
        seekPlayer(side, *syncTime, SeekTolerance::zero);
    } else if (side == Side::below && oldStep == WorkflowStep::step1) {
        m_fields.currentTime = 0;
        seekPlayer(side, 0, SeekTolerance::infinite);
    }
    // A point that was picked before can be picked anew; without one, the pick waits for the lock.
    if (m_fields.alignmentPoints[side])
        setAlignmentState(side == Side::above ? AlignmentState::pickingAbove : AlignmentState::pickingBelow);
}

void CompositorViewModel::enterStep3(WorkflowStep oldStep)
{
    const bool comesFromASide = oldStep == WorkflowStep::step1 || oldStep == WorkflowStep::step2;
    m_fields.viewMode = ViewMode::split;
    setAlignmentState(AlignmentState::none);
    if (comesFromASide && !m_isRestoringProjectStep)
        m_bases = Step3Bases::equalTo(m_fields.projectConfig);
    if (m_fields.manualSyncTime.above && m_fields.manualSyncTime.below)
        editConfig([](VideoCompositionConfig& config) { config.isSynced = true; });
    updateDuration();
    seek(comesFromASide ? 0 : std::min(m_fields.currentTime, m_fields.duration), true);
}

void CompositorViewModel::enterStep4(WorkflowStep oldStep)
{
    m_fields.viewMode = ViewMode::split;
    setAlignmentState(AlignmentState::none);
    updateDuration();
    if (oldStep == WorkflowStep::step3) {
        editConfig([](VideoCompositionConfig& config) {
            config.exportTrimStartSeconds = 0;
            config.exportTrimEndSeconds = 0;
        });
    }
    seek(m_fields.projectConfig.exportTrimStartSeconds, true);
}

void CompositorViewModel::markStep3OnboardingInteracted()
{
    const Operation operation(*this);
    if (m_fields.currentStep == WorkflowStep::step3)
        m_fields.hasInteractedWithStep3Adjustments = true;
}

void CompositorViewModel::setAlignmentState(AlignmentState state)
{
    m_fields.alignmentState = state;
    if (state == AlignmentState::none)
        m_fields.hoverY.reset();
}

void CompositorViewModel::setStartTime(Side side, double seconds)
{
    editConfig([&](VideoCompositionConfig& config) {
        (side == Side::above ? config.aboveStartTime : config.belowStartTime) = seconds;
    });
}

std::optional<VideoAsset>& CompositorViewModel::videoAsset(Side side)
{
    return side == Side::above ? m_fields.projectState.aboveVideo : m_fields.projectState.belowVideo;
}

// Leaves the record of the video in the project.
void CompositorViewModel::unloadVideo(Side side)
{
    const Operation operation(*this);
    m_loadRequestID[side] = QUuid::createUuid();
    m_fields.videoURL[side].reset();
    playerService(side).reset();
    if (side == Side::above)
        m_proxyService.setAboveVideoStatus({});
    else
        m_proxyService.setBelowVideoStatus({});
}

void CompositorViewModel::clearVideo(Side side)
{
    const Operation operation(*this);
    unloadVideo(side);
    videoAsset(side).reset();
    m_fields.manualSyncTime[side].reset();
    m_fields.alignmentPoints[side].reset();
    setAlignmentState(AlignmentState::none);
    m_fields.currentTime = 0;
    updateDuration();
    noteChange();
}

void CompositorViewModel::resetSideOnly(Side side, WorkflowStep step)
{
    clearVideo(side);
    setStartTime(side, 0);
    editConfig([](VideoCompositionConfig& config) { config.isSynced = false; });
    m_fields.syncStatusMessage.reset();
    m_fields.hasSliderBeenMoved = false;
    setCurrentStep(step);
    m_fields.maxReachedStep = step;
    seek(0, false);
}

void CompositorViewModel::resetAboveStepOnly()
{
    const Operation operation(*this);
    resetSideOnly(Side::above, WorkflowStep::step1);
}

void CompositorViewModel::resetBelowStepOnly()
{
    const Operation operation(*this);
    resetSideOnly(Side::below, m_fields.videoURL.above ? WorkflowStep::step2 : WorkflowStep::step1);
}

void CompositorViewModel::resetProject()
{
    const Operation operation(*this);
    // A project that is on its way would come back into the new one.
    m_newestProject = ++m_projectRequest;
    ++m_keepRequest;
    m_restoredProject.reset();
    releaseSecurityScopedResources();
    clearVideo(Side::above);
    clearVideo(Side::below);
    m_fields.isMissing = {};
    m_fields.showMissingFileAlert = false;
    m_fields.projectState = ProjectState::createdNow(m_environment.wallClock);
    setProjectConfig({});
    m_fields.trimMarkers = {};
    setCurrentStep(WorkflowStep::step1);
    m_fields.maxReachedStep = WorkflowStep::step1;
}

void CompositorViewModel::resetStep3AdjustmentValues()
{
    const Operation operation(*this);
    recordStepEditUndoSnapshot();
    editConfig([this](VideoCompositionConfig& config) {
        config.waterlineHeight = m_bases.waterlineHeight;
        config.aboveOffset = m_bases.aboveOffset;
        config.aboveHorizontalOffset = m_bases.aboveHorizontalOffset;
        config.aboveZoom = 0;
        config.timingOffset = 0;
        config.blendAmount = 15;
    });
    rebuildPreviewForTimingChange();
    noteChange();
}

}
