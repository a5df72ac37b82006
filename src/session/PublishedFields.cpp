// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/PublishedFields.h"

#include <QPointer>

namespace zumeta {

PublishedFields::PublishedFields(ProjectState projectState)
{
    m_fields.projectState = std::move(projectState);
    m_told = m_fields;
}

void PublishedFields::setProjectConfig(const VideoCompositionConfig& config)
{
    const Operation operation(*this);
    m_fields.projectConfig = config;
    m_fields.projectState.projectConfig = config;
}

void PublishedFields::endOperation()
{
    if (--m_openOperations > 0)
        return;
    // All comparing comes before all telling: an observer may begin the next operation.
    using Signal = void (PublishedFields::*)();
    std::vector<Signal> changes;
    const auto compare = [&](const auto& now, auto& told, Signal signal) {
        if (now == told)
            return;
        told = now;
        changes.push_back(signal);
    };
    const Fields& now = m_fields;
    Fields& told = m_told;
    compare(now.projectState, told.projectState, &PublishedFields::projectStateChanged);
    compare(now.videoURL.above, told.videoURL.above, &PublishedFields::aboveVideoURLChanged);
    compare(now.videoURL.below, told.videoURL.below, &PublishedFields::belowVideoURLChanged);
    compare(now.isPlaying, told.isPlaying, &PublishedFields::isPlayingChanged);
    compare(now.currentTime, told.currentTime, &PublishedFields::currentTimeChanged);
    compare(now.duration, told.duration, &PublishedFields::durationChanged);
    compare(now.trimMarkers.times, told.trimMarkers.times, &PublishedFields::trimMarkersChanged);
    compare(now.trimMarkers.selected, told.trimMarkers.selected, &PublishedFields::selectedTrimMarkerChanged);
    compare(now.isStep3LoopEnabled, told.isStep3LoopEnabled, &PublishedFields::isStep3LoopEnabledChanged);
    compare(now.isStep3SlowPlaybackEnabled, told.isStep3SlowPlaybackEnabled,
            &PublishedFields::isStep3SlowPlaybackEnabledChanged);
    compare(now.isVideoBlack.above, told.isVideoBlack.above, &PublishedFields::isAboveVideoBlackChanged);
    compare(now.isVideoBlack.below, told.isVideoBlack.below, &PublishedFields::isBelowVideoBlackChanged);
    compare(now.projectConfig, told.projectConfig, &PublishedFields::projectConfigChanged);
    compare(now.proxyStatus.above, told.proxyStatus.above, &PublishedFields::aboveProxyStatusChanged);
    compare(now.proxyStatus.below, told.proxyStatus.below, &PublishedFields::belowProxyStatusChanged);
    compare(now.isDetectingClap, told.isDetectingClap, &PublishedFields::isDetectingClapChanged);
    compare(now.clapTime.above, told.clapTime.above, &PublishedFields::aboveClapTimeChanged);
    compare(now.clapTime.below, told.clapTime.below, &PublishedFields::belowClapTimeChanged);
    compare(now.syncStatusMessage, told.syncStatusMessage, &PublishedFields::syncStatusMessageChanged);
    compare(now.syncStatusIsError, told.syncStatusIsError, &PublishedFields::syncStatusIsErrorChanged);
    compare(now.isAdjustingWaterline, told.isAdjustingWaterline, &PublishedFields::isAdjustingWaterlineChanged);
    compare(now.isExporting, told.isExporting, &PublishedFields::isExportingChanged);
    compare(now.exportProgress, told.exportProgress, &PublishedFields::exportProgressChanged);
    compare(now.exportNotification, told.exportNotification, &PublishedFields::exportNotificationChanged);
    compare(now.selectedResolution, told.selectedResolution, &PublishedFields::selectedResolutionChanged);
    compare(now.showExportSheet, told.showExportSheet, &PublishedFields::showExportSheetChanged);
    compare(now.showSaveProjectPanel, told.showSaveProjectPanel, &PublishedFields::showSaveProjectPanelChanged);
    compare(now.showOpenProjectPanel, told.showOpenProjectPanel, &PublishedFields::showOpenProjectPanelChanged);
    compare(now.projectSaveDefaultFilename, told.projectSaveDefaultFilename,
            &PublishedFields::projectSaveDefaultFilenameChanged);
    compare(now.showSkeletonOverlay, told.showSkeletonOverlay, &PublishedFields::showSkeletonOverlayChanged);
    compare(now.detectedSkeletons, told.detectedSkeletons, &PublishedFields::detectedSkeletonsChanged);
    compare(now.selectedPersonId, told.selectedPersonId, &PublishedFields::selectedPersonIdChanged);
    compare(now.selectedCamera, told.selectedCamera, &PublishedFields::selectedCameraChanged);
    compare(now.isCameraSelectionConfirmed, told.isCameraSelectionConfirmed,
            &PublishedFields::isCameraSelectionConfirmedChanged);
    compare(now.alignmentState, told.alignmentState, &PublishedFields::alignmentStateChanged);
    compare(now.hoverY, told.hoverY, &PublishedFields::hoverYChanged);
    compare(now.hasSliderBeenMoved, told.hasSliderBeenMoved, &PublishedFields::hasSliderBeenMovedChanged);
    compare(now.isTimelineSliderDragging, told.isTimelineSliderDragging,
            &PublishedFields::isTimelineSliderDraggingChanged);
    compare(now.hasInteractedWithStep3Adjustments, told.hasInteractedWithStep3Adjustments,
            &PublishedFields::hasInteractedWithStep3AdjustmentsChanged);
    compare(now.hasInteractedWithStep4ExportControls, told.hasInteractedWithStep4ExportControls,
            &PublishedFields::hasInteractedWithStep4ExportControlsChanged);
    compare(now.maxReachedStep, told.maxReachedStep, &PublishedFields::maxReachedStepChanged);
    compare(now.currentStep, told.currentStep, &PublishedFields::currentStepChanged);
    compare(now.alignmentPoints.above, told.alignmentPoints.above, &PublishedFields::alignmentPointAboveChanged);
    compare(now.alignmentPoints.below, told.alignmentPoints.below, &PublishedFields::alignmentPointBelowChanged);
    compare(now.isMissing.above, told.isMissing.above, &PublishedFields::isAboveMissingChanged);
    compare(now.isMissing.below, told.isMissing.below, &PublishedFields::isBelowMissingChanged);
    compare(now.showMissingFileAlert, told.showMissingFileAlert, &PublishedFields::showMissingFileAlertChanged);
    compare(now.manualSyncTime.above, told.manualSyncTime.above, &PublishedFields::manualSyncTimeAboveChanged);
    compare(now.manualSyncTime.below, told.manualSyncTime.below, &PublishedFields::manualSyncTimeBelowChanged);
    compare(now.viewMode, told.viewMode, &PublishedFields::viewModeChanged);
    compare(now.isFullScreen, told.isFullScreen, &PublishedFields::isFullScreenChanged);
    const bool wasNoted = std::exchange(m_changeIsNoted, false);
    if (changes.empty() && !wasNoted)
        return;
    changes.push_back(&PublishedFields::changed);
    const QPointer<PublishedFields> self(this);
    for (const Signal signal : changes) {
        if (!self)
            return;
        Q_EMIT(this->*signal)();
    }
}

}
