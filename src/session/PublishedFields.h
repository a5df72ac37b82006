// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "analysis/MotionAnalysisService.h"
#include "media/ProxyService.h"
#include "model/CameraType.h"
#include "model/ProjectState.h"
#include "session/Side.h"
#include "session/TrimMarkers.h"

#include <QObject>
#include <QUuid>
#include <optional>
#include <vector>

namespace zumeta {

/// A message that an export leaves behind.
struct ExportNotification {
    QUuid id;
    QString title;
    QString message;
    bool isError = false;
    friend bool operator==(const ExportNotification&, const ExportNotification&) = default;
};

/// What the session shows of the work in progress. Fields are told of when the operation that changed them is over, so
/// that observers never see fields that do not agree. Main thread.
class PublishedFields : public QObject {
    Q_OBJECT
    Q_PROPERTY(ProjectState projectState READ projectState NOTIFY projectStateChanged FINAL)
    Q_PROPERTY(std::optional<FileUrl> aboveVideoURL READ aboveVideoURL NOTIFY aboveVideoURLChanged FINAL)
    Q_PROPERTY(std::optional<FileUrl> belowVideoURL READ belowVideoURL NOTIFY belowVideoURLChanged FINAL)
    Q_PROPERTY(bool isPlaying READ isPlaying NOTIFY isPlayingChanged FINAL)
    Q_PROPERTY(double currentTime READ currentTime NOTIFY currentTimeChanged FINAL)
    Q_PROPERTY(double duration READ duration NOTIFY durationChanged FINAL)
    Q_PROPERTY(std::vector<double> trimMarkers READ trimMarkers NOTIFY trimMarkersChanged FINAL)
    Q_PROPERTY(std::optional<double> selectedTrimMarker READ selectedTrimMarker NOTIFY selectedTrimMarkerChanged FINAL)
    Q_PROPERTY(bool isStep3LoopEnabled READ isStep3LoopEnabled WRITE setStep3LoopEnabled NOTIFY
                   isStep3LoopEnabledChanged FINAL)
    Q_PROPERTY(
        bool isStep3SlowPlaybackEnabled READ isStep3SlowPlaybackEnabled NOTIFY isStep3SlowPlaybackEnabledChanged FINAL)
    Q_PROPERTY(bool isAboveVideoBlack READ isAboveVideoBlack NOTIFY isAboveVideoBlackChanged FINAL)
    Q_PROPERTY(bool isBelowVideoBlack READ isBelowVideoBlack NOTIFY isBelowVideoBlackChanged FINAL)
    Q_PROPERTY(VideoCompositionConfig projectConfig READ projectConfig WRITE setProjectConfig NOTIFY
                   projectConfigChanged FINAL)
    Q_PROPERTY(ProxyStatus aboveProxyStatus READ aboveProxyStatus NOTIFY aboveProxyStatusChanged FINAL)
    Q_PROPERTY(ProxyStatus belowProxyStatus READ belowProxyStatus NOTIFY belowProxyStatusChanged FINAL)
    Q_PROPERTY(bool isDetectingClap READ isDetectingClap NOTIFY isDetectingClapChanged FINAL)
    Q_PROPERTY(std::optional<double> aboveClapTime READ aboveClapTime NOTIFY aboveClapTimeChanged FINAL)
    Q_PROPERTY(std::optional<double> belowClapTime READ belowClapTime NOTIFY belowClapTimeChanged FINAL)
    Q_PROPERTY(std::optional<QString> syncStatusMessage READ syncStatusMessage NOTIFY syncStatusMessageChanged FINAL)
    Q_PROPERTY(bool syncStatusIsError READ syncStatusIsError NOTIFY syncStatusIsErrorChanged FINAL)
    Q_PROPERTY(bool isAdjustingWaterline READ isAdjustingWaterline NOTIFY isAdjustingWaterlineChanged FINAL)
    Q_PROPERTY(bool isExporting READ isExporting NOTIFY isExportingChanged FINAL)
    Q_PROPERTY(double exportProgress READ exportProgress NOTIFY exportProgressChanged FINAL)
    Q_PROPERTY(std::optional<ExportNotification> exportNotification READ exportNotification NOTIFY
                   exportNotificationChanged FINAL)
    Q_PROPERTY(ExportResolutionType selectedResolution READ selectedResolution WRITE setSelectedResolution NOTIFY
                   selectedResolutionChanged FINAL)
    Q_PROPERTY(bool showExportSheet READ showExportSheet WRITE setShowExportSheet NOTIFY showExportSheetChanged FINAL)
    Q_PROPERTY(bool showSaveProjectPanel READ showSaveProjectPanel WRITE setShowSaveProjectPanel NOTIFY
                   showSaveProjectPanelChanged FINAL)
    Q_PROPERTY(bool showOpenProjectPanel READ showOpenProjectPanel WRITE setShowOpenProjectPanel NOTIFY
                   showOpenProjectPanelChanged FINAL)
    Q_PROPERTY(QString projectSaveDefaultFilename READ projectSaveDefaultFilename NOTIFY
                   projectSaveDefaultFilenameChanged FINAL)
    Q_PROPERTY(bool showSkeletonOverlay READ showSkeletonOverlay NOTIFY showSkeletonOverlayChanged FINAL)
    Q_PROPERTY(std::vector<MotionAnalysisService::Skeleton> detectedSkeletons READ detectedSkeletons NOTIFY
                   detectedSkeletonsChanged FINAL)
    Q_PROPERTY(std::optional<int> selectedPersonId READ selectedPersonId NOTIFY selectedPersonIdChanged FINAL)
    Q_PROPERTY(CameraType selectedCamera READ selectedCamera WRITE setSelectedCamera NOTIFY selectedCameraChanged FINAL)
    Q_PROPERTY(bool isCameraSelectionConfirmed READ isCameraSelectionConfirmed WRITE setCameraSelectionConfirmed NOTIFY
                   isCameraSelectionConfirmedChanged FINAL)
    Q_PROPERTY(AlignmentState alignmentState READ alignmentState NOTIFY alignmentStateChanged FINAL)
    Q_PROPERTY(std::optional<double> hoverY READ hoverY NOTIFY hoverYChanged FINAL)
    Q_PROPERTY(bool hasSliderBeenMoved READ hasSliderBeenMoved WRITE setHasSliderBeenMoved NOTIFY
                   hasSliderBeenMovedChanged FINAL)
    Q_PROPERTY(bool isTimelineSliderDragging READ isTimelineSliderDragging WRITE setTimelineSliderDragging NOTIFY
                   isTimelineSliderDraggingChanged FINAL)
    Q_PROPERTY(bool hasInteractedWithStep3Adjustments READ hasInteractedWithStep3Adjustments WRITE
                   setHasInteractedWithStep3Adjustments NOTIFY hasInteractedWithStep3AdjustmentsChanged FINAL)
    Q_PROPERTY(bool hasInteractedWithStep4ExportControls READ hasInteractedWithStep4ExportControls WRITE
                   setHasInteractedWithStep4ExportControls NOTIFY hasInteractedWithStep4ExportControlsChanged FINAL)
    Q_PROPERTY(WorkflowStep maxReachedStep READ maxReachedStep NOTIFY maxReachedStepChanged FINAL)
    Q_PROPERTY(
        std::optional<double> alignmentPointAbove READ alignmentPointAbove NOTIFY alignmentPointAboveChanged FINAL)
    Q_PROPERTY(
        std::optional<double> alignmentPointBelow READ alignmentPointBelow NOTIFY alignmentPointBelowChanged FINAL)
    Q_PROPERTY(bool isAboveMissing READ isAboveMissing NOTIFY isAboveMissingChanged FINAL)
    Q_PROPERTY(bool isBelowMissing READ isBelowMissing NOTIFY isBelowMissingChanged FINAL)
    Q_PROPERTY(bool showMissingFileAlert READ showMissingFileAlert WRITE setShowMissingFileAlert NOTIFY
                   showMissingFileAlertChanged FINAL)
    Q_PROPERTY(
        std::optional<double> manualSyncTimeAbove READ manualSyncTimeAbove NOTIFY manualSyncTimeAboveChanged FINAL)
    Q_PROPERTY(
        std::optional<double> manualSyncTimeBelow READ manualSyncTimeBelow NOTIFY manualSyncTimeBelowChanged FINAL)
    Q_PROPERTY(ViewMode viewMode READ viewMode NOTIFY viewModeChanged FINAL)
    Q_PROPERTY(bool isFullScreen READ isFullScreen WRITE setFullScreen NOTIFY isFullScreenChanged FINAL)
public:
    /// Step 1 sets up the above video, Step 2 the below video, Step 3 fine-tunes, Step 4 trims and exports.
    enum class WorkflowStep { step1 = 1, step2, step3, step4 };
    Q_ENUM(WorkflowStep)
    /// Whether the next click in the preview picks a point of the waterline, and in which video.
    enum class AlignmentState { none, pickingAbove, pickingBelow };
    Q_ENUM(AlignmentState)
    /// What the preview shows; `split` is the composite.
    enum class ViewMode { split, aboveOnly, belowOnly };
    Q_ENUM(ViewMode)

    const ProjectState& projectState() const { return m_fields.projectState; }
    const std::optional<FileUrl>& aboveVideoURL() const { return m_fields.videoURL.above; }
    const std::optional<FileUrl>& belowVideoURL() const { return m_fields.videoURL.below; }
    bool isPlaying() const { return m_fields.isPlaying; }
    double currentTime() const { return m_fields.currentTime; }
    double duration() const { return m_fields.duration; }
    const std::vector<double>& trimMarkers() const { return m_fields.trimMarkers.times; }
    std::optional<double> selectedTrimMarker() const { return m_fields.trimMarkers.selected; }
    bool isStep3LoopEnabled() const { return m_fields.isStep3LoopEnabled; }
    bool isStep3SlowPlaybackEnabled() const { return m_fields.isStep3SlowPlaybackEnabled; }
    bool isAboveVideoBlack() const { return m_fields.isVideoBlack.above; }
    bool isBelowVideoBlack() const { return m_fields.isVideoBlack.below; }
    const VideoCompositionConfig& projectConfig() const { return m_fields.projectConfig; }
    const ProxyStatus& aboveProxyStatus() const { return m_fields.proxyStatus.above; }
    const ProxyStatus& belowProxyStatus() const { return m_fields.proxyStatus.below; }
    bool isDetectingClap() const { return m_fields.isDetectingClap; }
    std::optional<double> aboveClapTime() const { return m_fields.clapTime.above; }
    std::optional<double> belowClapTime() const { return m_fields.clapTime.below; }
    const std::optional<QString>& syncStatusMessage() const { return m_fields.syncStatusMessage; }
    bool syncStatusIsError() const { return m_fields.syncStatusIsError; }
    bool isAdjustingWaterline() const { return m_fields.isAdjustingWaterline; }
    bool isExporting() const { return m_fields.isExporting; }
    double exportProgress() const { return m_fields.exportProgress; }
    const std::optional<ExportNotification>& exportNotification() const { return m_fields.exportNotification; }
    ExportResolutionType selectedResolution() const { return m_fields.selectedResolution; }
    bool showExportSheet() const { return m_fields.showExportSheet; }
    bool showSaveProjectPanel() const { return m_fields.showSaveProjectPanel; }
    bool showOpenProjectPanel() const { return m_fields.showOpenProjectPanel; }
    const QString& projectSaveDefaultFilename() const { return m_fields.projectSaveDefaultFilename; }
    bool showSkeletonOverlay() const { return m_fields.showSkeletonOverlay; }
    const std::vector<MotionAnalysisService::Skeleton>& detectedSkeletons() const { return m_fields.detectedSkeletons; }
    std::optional<int> selectedPersonId() const { return m_fields.selectedPersonId; }
    CameraType selectedCamera() const { return m_fields.selectedCamera; }
    bool isCameraSelectionConfirmed() const { return m_fields.isCameraSelectionConfirmed; }
    AlignmentState alignmentState() const { return m_fields.alignmentState; }
    std::optional<double> hoverY() const { return m_fields.hoverY; }
    bool hasSliderBeenMoved() const { return m_fields.hasSliderBeenMoved; }
    bool isTimelineSliderDragging() const { return m_fields.isTimelineSliderDragging; }
    bool hasInteractedWithStep3Adjustments() const { return m_fields.hasInteractedWithStep3Adjustments; }
    bool hasInteractedWithStep4ExportControls() const { return m_fields.hasInteractedWithStep4ExportControls; }
    WorkflowStep maxReachedStep() const { return m_fields.maxReachedStep; }
    WorkflowStep currentStep() const { return m_fields.currentStep; }
    std::optional<double> alignmentPointAbove() const { return m_fields.alignmentPoints.above; }
    std::optional<double> alignmentPointBelow() const { return m_fields.alignmentPoints.below; }
    bool isAboveMissing() const { return m_fields.isMissing.above; }
    bool isBelowMissing() const { return m_fields.isMissing.below; }
    bool showMissingFileAlert() const { return m_fields.showMissingFileAlert; }
    std::optional<double> manualSyncTimeAbove() const { return m_fields.manualSyncTime.above; }
    std::optional<double> manualSyncTimeBelow() const { return m_fields.manualSyncTime.below; }
    ViewMode viewMode() const { return m_fields.viewMode; }
    bool isFullScreen() const { return m_fields.isFullScreen; }

    void setStep3LoopEnabled(bool value) { assign(m_fields.isStep3LoopEnabled, value); }
    void setSelectedResolution(ExportResolutionType value) { assign(m_fields.selectedResolution, value); }
    void setShowExportSheet(bool value) { assign(m_fields.showExportSheet, value); }
    void setShowSaveProjectPanel(bool value) { assign(m_fields.showSaveProjectPanel, value); }
    void setShowOpenProjectPanel(bool value) { assign(m_fields.showOpenProjectPanel, value); }
    void setSelectedCamera(CameraType value) { assign(m_fields.selectedCamera, value); }
    void setCameraSelectionConfirmed(bool value) { assign(m_fields.isCameraSelectionConfirmed, value); }
    void setHasSliderBeenMoved(bool value) { assign(m_fields.hasSliderBeenMoved, value); }
    void setTimelineSliderDragging(bool value) { assign(m_fields.isTimelineSliderDragging, value); }
    void setHasInteractedWithStep3Adjustments(bool value) { assign(m_fields.hasInteractedWithStep3Adjustments, value); }
    void setHasInteractedWithStep4ExportControls(bool value)
    {
        assign(m_fields.hasInteractedWithStep4ExportControls, value);
    }
    void setShowMissingFileAlert(bool value) { assign(m_fields.showMissingFileAlert, value); }
    // No surface calls these two yet.
    void setShowSkeletonOverlay(bool value) { assign(m_fields.showSkeletonOverlay, value); }
    void setDetectedSkeletons(const std::vector<MotionAnalysisService::Skeleton>& skeletons)
    {
        assign(m_fields.detectedSkeletons, skeletons);
    }
    void setFullScreen(bool value) { assign(m_fields.isFullScreen, value); }
    /// Written into projectState at once, so that a project kept in the same turn is whole.
    void setProjectConfig(const VideoCompositionConfig& config);

Q_SIGNALS:
    /// Something has changed; after the signals of the single fields. What is derived from fields is told of here.
    void changed();
    void projectStateChanged();
    void aboveVideoURLChanged();
    void belowVideoURLChanged();
    void isPlayingChanged();
    void currentTimeChanged();
    void durationChanged();
    void trimMarkersChanged();
    void selectedTrimMarkerChanged();
    void isStep3LoopEnabledChanged();
    void isStep3SlowPlaybackEnabledChanged();
    void isAboveVideoBlackChanged();
    void isBelowVideoBlackChanged();
    void projectConfigChanged();
    void aboveProxyStatusChanged();
    void belowProxyStatusChanged();
    void isDetectingClapChanged();
    void aboveClapTimeChanged();
    void belowClapTimeChanged();
    void syncStatusMessageChanged();
    void syncStatusIsErrorChanged();
    void isAdjustingWaterlineChanged();
    void isExportingChanged();
    void exportProgressChanged();
    void exportNotificationChanged();
    void selectedResolutionChanged();
    void showExportSheetChanged();
    void showSaveProjectPanelChanged();
    void showOpenProjectPanelChanged();
    void projectSaveDefaultFilenameChanged();
    void showSkeletonOverlayChanged();
    void detectedSkeletonsChanged();
    void selectedPersonIdChanged();
    void selectedCameraChanged();
    void isCameraSelectionConfirmedChanged();
    void alignmentStateChanged();
    void hoverYChanged();
    void hasSliderBeenMovedChanged();
    void isTimelineSliderDraggingChanged();
    void hasInteractedWithStep3AdjustmentsChanged();
    void hasInteractedWithStep4ExportControlsChanged();
    void maxReachedStepChanged();
    void currentStepChanged();
    void alignmentPointAboveChanged();
    void alignmentPointBelowChanged();
    void isAboveMissingChanged();
    void isBelowMissingChanged();
    void showMissingFileAlertChanged();
    void manualSyncTimeAboveChanged();
    void manualSyncTimeBelowChanged();
    void viewModeChanged();
    void isFullScreenChanged();

protected:
    struct Fields {
        ProjectState projectState;
        Sides<std::optional<FileUrl>> videoURL; ///< first file; set early in a load
        bool isPlaying = false;                 ///< playback intended
        double currentTime = 0; ///< seconds: media time in Steps 1 and 2, composite time in Steps 3 and 4
        double duration = 0;    ///< seconds, of the current step's timeline
        TrimMarkers trimMarkers;
        bool isStep3LoopEnabled = true;
        bool isStep3SlowPlaybackEnabled = false;
        Sides<bool> isVideoBlack; ///< only ever set to false: no side runs out inside the composite
        VideoCompositionConfig projectConfig;
        Sides<ProxyStatus> proxyStatus;
        bool isDetectingClap = false;          ///< never set
        Sides<std::optional<double>> clapTime; ///< never written
        std::optional<QString> syncStatusMessage;
        bool syncStatusIsError = false;
        bool isAdjustingWaterline = false; ///< read by the preview; no operation sets it
        bool isExporting = false;
        double exportProgress = 0;
        std::optional<ExportNotification> exportNotification;
        ExportResolutionType selectedResolution = ExportResolutionType::hd720;
        bool showExportSheet = false;
        bool showSaveProjectPanel = false;
        bool showOpenProjectPanel = false;
        QString projectSaveDefaultFilename = QStringLiteral("Zumeta");
        bool showSkeletonOverlay = false;
        std::vector<MotionAnalysisService::Skeleton> detectedSkeletons;
        std::optional<int> selectedPersonId;
        CameraType selectedCamera = CameraType::gopro;
        bool isCameraSelectionConfirmed = false;
        AlignmentState alignmentState = AlignmentState::none;
        std::optional<double> hoverY; ///< the surface's own coordinates; only while a pick is open
        bool hasSliderBeenMoved = false;
        bool isTimelineSliderDragging = false;
        bool hasInteractedWithStep3Adjustments = false;
        bool hasInteractedWithStep4ExportControls = false;
        WorkflowStep maxReachedStep = WorkflowStep::step1;
        WorkflowStep currentStep = WorkflowStep::step1;
        Sides<std::optional<double>> alignmentPoints; ///< fractions of the picture's height, 0 at the bottom
        Sides<bool> isMissing;
        bool showMissingFileAlert = false;
        Sides<std::optional<double>> manualSyncTime; ///< seconds of media time; present means locked
        ViewMode viewMode = ViewMode::split;
        bool isFullScreen = false;
    };

    /// Stands for an operation. At the end of the outermost one, observers are told of what has changed since.
    class Operation {
    public:
        explicit Operation(PublishedFields& fields)
            : m_owner(fields)
        {
            ++m_owner.m_openOperations;
        }
        ~Operation() { m_owner.endOperation(); }
        Operation(const Operation&) = delete; // it stands for one stretch of code
        Operation& operator=(const Operation&) = delete;

    private:
        PublishedFields& m_owner;
    };

    explicit PublishedFields(ProjectState projectState);

    template <typename T> void assign(T& field, const T& value)
    {
        const Operation operation(*this);
        field = value;
    }
    template <typename Edit> void editConfig(Edit edit)
    {
        VideoCompositionConfig config = m_fields.projectConfig;
        edit(config);
        setProjectConfig(config);
    }
    /// The operation is told of even when no field is different after it.
    void noteChange() { m_changeIsNoted = true; }

    Fields m_fields;

private:
    void endOperation();

    Fields m_told; ///< as observers know them
    int m_openOperations = 0;
    bool m_changeIsNoted = false;
};

}
