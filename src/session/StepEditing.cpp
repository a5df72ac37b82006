// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/CompositorViewModel.h"

#include <QPointer>

namespace zumeta {

StepEditSnapshot CompositorViewModel::currentStepEditSnapshot() const
{
    const VideoCompositionConfig& config = m_fields.projectConfig;
    return {.waterlineHeight = config.waterlineHeight,
            .aboveOffset = config.aboveOffset,
            .aboveHorizontalOffset = config.aboveHorizontalOffset,
            .aboveZoom = config.aboveZoom,
            .timingOffset = config.timingOffset,
            .blendAmount = config.blendAmount,
            .isStep3LoopEnabled = m_fields.isStep3LoopEnabled,
            .isStep3SlowPlaybackEnabled = m_fields.isStep3SlowPlaybackEnabled,
            .exportTrimStartSeconds = config.exportTrimStartSeconds,
            .exportTrimEndSeconds = config.exportTrimEndSeconds,
            .trimMarkers = m_fields.trimMarkers.times,
            .selectedTrimMarker = m_fields.trimMarkers.selected,
            .currentTime = m_fields.currentTime};
}

void CompositorViewModel::writeStepEditValues(const StepEditSnapshot& snapshot)
{
    editConfig([&](VideoCompositionConfig& config) {
        config.waterlineHeight = snapshot.waterlineHeight;
        config.aboveOffset = snapshot.aboveOffset;
        config.aboveHorizontalOffset = snapshot.aboveHorizontalOffset;
        config.aboveZoom = snapshot.aboveZoom;
        config.timingOffset = snapshot.timingOffset;
        config.blendAmount = snapshot.blendAmount;
        config.exportTrimStartSeconds = snapshot.exportTrimStartSeconds;
        config.exportTrimEndSeconds = snapshot.exportTrimEndSeconds;
    });
    m_fields.isStep3LoopEnabled = snapshot.isStep3LoopEnabled;
    m_fields.isStep3SlowPlaybackEnabled = snapshot.isStep3SlowPlaybackEnabled;
    m_fields.trimMarkers = {snapshot.trimMarkers, snapshot.selectedTrimMarker};
}

void CompositorViewModel::recordStepEditUndoSnapshot()
{
    if (!isCompositeStep() || m_isRestoringStepEditSnapshot)
        return;
    const Operation operation(*this);
    if (m_stepEditHistory.record(currentStepEditSnapshot()))
        noteChange();
}

void CompositorViewModel::undoLastStepEdit()
{
    if (!isCompositeStep())
        return;
    if (const std::optional<StepEditSnapshot> snapshot = m_stepEditHistory.undo(currentStepEditSnapshot()))
        restoreStepEditSnapshot(*snapshot);
}

void CompositorViewModel::redoLastStepEdit()
{
    if (!isCompositeStep())
        return;
    if (const std::optional<StepEditSnapshot> snapshot = m_stepEditHistory.redo(currentStepEditSnapshot()))
        restoreStepEditSnapshot(*snapshot);
}

void CompositorViewModel::restoreStepEditSnapshot(const StepEditSnapshot& snapshot)
{
    // Observers are told while nothing records: a surface that follows a value that comes back begins no edit.
    const QPointer self(this);
    m_isRestoringStepEditSnapshot = true;
    {
        const Operation operation(*this);
        const bool wasSlow = m_fields.isStep3SlowPlaybackEnabled;
        writeStepEditValues(snapshot);
        // The length follows the timing, and the playhead can only go where the timeline reaches.
        updateDuration();
        seek(snapshot.currentTime, true);
        rebuildPreviewForTimingChange();
        if (m_fields.isStep3SlowPlaybackEnabled != wasSlow)
            followSlowPlaybackSwitch();
        noteChange();
    }
    if (self)
        m_isRestoringStepEditSnapshot = false;
}

}
