// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "analysis/DetectionServices.h"
#include "media/VideoPlayerService.h"
#include "session/CompositeTimeline.h"
#include "session/FrameRateFamily.h"
#include "session/PublishedFields.h"
#include "session/RestoredProject.h"
#include "session/SessionEnvironment.h"
#include "session/Step3Bases.h"
#include "session/StepEditHistory.h"

#include <QSizeF>

namespace zumeta {

/// The session: the one object that holds the work in progress and carries out every action of the user. Surfaces read
/// its fields and call its operations. Main thread. What waits runs in tasks that begin in a later turn and end
/// silently when something newer has taken their place.
class CompositorViewModel final : public PublishedFields {
    Q_OBJECT
    Q_PROPERTY(WorkflowStep currentStep READ currentStep WRITE setCurrentStep NOTIFY currentStepChanged FINAL)
    Q_PROPERTY(double aboveZoom READ aboveZoom WRITE setAboveZoom NOTIFY changed FINAL)
    Q_PROPERTY(double timingOffset READ timingOffset WRITE setTimingOffset NOTIFY changed FINAL)
    Q_PROPERTY(double blendAmount READ blendAmount WRITE setBlendAmount NOTIFY changed FINAL)
    Q_PROPERTY(double relativeWaterlineHeight READ relativeWaterlineHeight WRITE setRelativeWaterlineHeight NOTIFY
                   changed FINAL)
    Q_PROPERTY(double relativeAboveOffset READ relativeAboveOffset WRITE setRelativeAboveOffset NOTIFY changed FINAL)
    Q_PROPERTY(double relativeAboveHorizontalOffset READ relativeAboveHorizontalOffset WRITE
                   setRelativeAboveHorizontalOffset NOTIFY changed FINAL)
    Q_PROPERTY(double effectiveExportDuration READ effectiveExportDuration NOTIFY changed FINAL)
    Q_PROPERTY(double activePlaybackRate READ activePlaybackRate NOTIFY changed FINAL)
    Q_PROPERTY(std::optional<FileUrl> currentVideoURL READ currentVideoURL NOTIFY changed FINAL)
    Q_PROPERTY(std::optional<double> currentManualSyncTime READ currentManualSyncTime NOTIFY changed FINAL)
    Q_PROPERTY(bool canExport READ canExport NOTIFY changed FINAL)
    Q_PROPERTY(bool showDropZoneAboveHighlight READ showDropZoneAboveHighlight NOTIFY changed FINAL)
    Q_PROPERTY(bool showDropZoneBelowHighlight READ showDropZoneBelowHighlight NOTIFY changed FINAL)
    Q_PROPERTY(bool showTimelineHighlight READ showTimelineHighlight NOTIFY changed FINAL)
    Q_PROPERTY(bool showMarkButtonHighlight READ showMarkButtonHighlight NOTIFY changed FINAL)
    Q_PROPERTY(bool showTapAreaHighlight READ showTapAreaHighlight NOTIFY changed FINAL)
    // Trims and editing.
    Q_PROPERTY(double trimStart READ trimStart WRITE setTrimStart NOTIFY changed FINAL)
    Q_PROPERTY(double trimEndPosition READ trimEndPosition WRITE setTrimEndPosition NOTIFY changed FINAL)
    Q_PROPERTY(bool isCurrentTimeAssignedToTrimStart READ isCurrentTimeAssignedToTrimStart NOTIFY changed FINAL)
    Q_PROPERTY(bool isCurrentTimeAssignedToTrimEnd READ isCurrentTimeAssignedToTrimEnd NOTIFY changed FINAL)
    Q_PROPERTY(bool canUndoStepEdit READ canUndoStepEdit NOTIFY changed FINAL)
    Q_PROPERTY(bool canRedoStepEdit READ canRedoStepEdit NOTIFY changed FINAL)
public:
    using CameraType = zumeta::CameraType;
    using FrameRateFamily = zumeta::FrameRateFamily;
    using ExportNotification = zumeta::ExportNotification;

    explicit CompositorViewModel(SessionEnvironment environment);
    ~CompositorViewModel() override;

    // What follows from the fields.
    double effectiveExportDuration() const; ///< seconds
    double activePlaybackRate() const;
    std::optional<FileUrl> currentVideoURL() const;
    std::optional<double> currentManualSyncTime() const;
    bool canExport() const; ///< one video is enough
    QString defaultOutputFilenameBase() const;
    bool showDropZoneAboveHighlight() const;
    bool showDropZoneBelowHighlight() const;
    bool showTimelineHighlight() const;
    bool showMarkButtonHighlight() const;
    bool showTapAreaHighlight() const;

    // The adjustable values. The relative ones are corrections to what the waterline pick gave.
    double aboveZoom() const { return projectConfig().aboveZoom; }
    void setAboveZoom(double value);
    double timingOffset() const { return projectConfig().timingOffset; }
    void setTimingOffset(double value);
    double blendAmount() const { return projectConfig().blendAmount; }
    void setBlendAmount(double value);
    double relativeWaterlineHeight() const;
    void setRelativeWaterlineHeight(double value);
    double relativeAboveOffset() const;
    void setRelativeAboveOffset(double value);
    double relativeAboveHorizontalOffset() const;
    void setRelativeAboveHorizontalOffset(double value);

    // Trims, as the numeric rows show and set them: they keep half a second. Composite seconds.
    double trimStart() const { return projectConfig().exportTrimStartSeconds; }
    void setTrimStart(double seconds);
    double trimEndPosition() const;
    void setTrimEndPosition(double position);
    bool isCurrentTimeAssignedToTrimStart() const;
    bool isCurrentTimeAssignedToTrimEnd() const;

    // Undo and redo of Steps 3 and 4.
    const StepEditHistory& stepEditHistory() const { return m_stepEditHistory; }
    bool canUndoStepEdit() const { return isCompositeStep() && m_stepEditHistory.undoCount() > 0; }
    bool canRedoStepEdit() const { return isCompositeStep() && m_stepEditHistory.redoCount() > 0; }

    VideoPlayerService& abovePlayerService() { return *m_playerServices.above; }
    VideoPlayerService& belowPlayerService() { return *m_playerServices.below; }
    ProxyService& proxyService() { return m_proxyService; }
    /// Both players can be asked for their pictures of one moment of it.
    const PlaybackClock& playbackClock() const { return m_environment.playbackClock; }
    bool shouldShowWatermark() const { return m_shouldShowWatermark; }
    /// From when the side's URL is set until it has its asset or cannot have it.
    bool isLoading(Side side) const { return isCurrentLoad(side, m_loadUnderWay[side]); }

public Q_SLOTS:
    // Workflow.
    /// The change of step runs for an equal step too.
    void setCurrentStep(WorkflowStep step);
    void markStep3OnboardingInteracted();
    void clearAboveVideo() { clearVideo(Side::above); }
    void clearBelowVideo() { clearVideo(Side::below); }
    void resetAboveStepOnly();
    void resetBelowStepOnly();
    void resetStep3AdjustmentValues();
    void resetProject();

    // Video admission. One file, or the ordered chapters of one recording.
    void retainSecurityScopedAccess(const std::vector<zumeta::FileUrl>& urls);
    void loadAboveVideo(const std::vector<zumeta::FileUrl>& urls) { loadVideo(Side::above, urls); }
    void loadBelowVideo(const std::vector<zumeta::FileUrl>& urls) { loadVideo(Side::below, urls); }

    // Transport.
    void play();
    void pause();
    void togglePlayback();
    /// What the shortcut does: it also counts as taking part in the guide.
    void togglePlayPause();
    /// `precise` lands on the frame, otherwise on a key frame nearby.
    void seek(double time, bool precise);
    void step(int frames);
    void adjustPlaybackRate(bool faster);
    void toggleStep3SlowPlayback();
    void rebuildPreviewForTimingChange();

    // Sync and alignment.
    void toggleAboveLock() { toggleLock(Side::above); }
    void toggleBelowLock() { toggleLock(Side::below); }
    void markAboveSync() { markSync(Side::above); }
    void markBelowSync() { markSync(Side::below); }
    void restoreManualSyncTimes(const zumeta::VideoCompositionConfig& config);
    /// A click on the water surface: its height in the picture, 0 at the bottom. Takes effect in a later turn, and none
    /// when no pick is open by then.
    void onPickWaterline(double y);
    /// The pointer's height over the picture, or nothing outside it.
    void onHover(std::optional<double> y);

    // Trims and markers. Composite seconds; times beyond the timeline mean its nearest end.
    void addTrimMarkerAtCurrentTime();
    /// A click: selects the marker and goes there, or deselects the selected one.
    void selectTrimMarker(double time);
    /// The beginning of a drag: selects, and never deselects.
    void selectTrimMarkerForEditing(double time);
    void updateSelectedTrimMarker(double time);
    void deleteSelectedTrimMarker();
    void clearTimelineMarkers();
    /// To the next (+1) or the previous (-1) marker or end of the range. Step 4 alone.
    void navigateTrimMarker(int direction);
    /// Both work from the playhead, on a marker or not. The range may become empty.
    void applySelectedMarkerToTrimStart();
    void applySelectedMarkerToTrimEnd();
    /// Nothing while the playhead stands on the other end of the range.
    void applyCurrentTimeToTrimStartIfAllowed();
    void applyCurrentTimeToTrimEndIfAllowed();
    void resetTrimRange();

    // Step-edit history.
    /// To be called before an edit of Steps 3 and 4 that can be undone.
    void recordStepEditUndoSnapshot();
    void undoLastStepEdit();
    void redoLastStepEdit();

    // What the panels of Steps 3 and 4 do beyond the plain operations: it counts as taking part in the guide, and undo
    // comes back to before it.
    void beginStep3Adjustment(); ///< of any row
    void beginStep4Adjustment();
    void markStep4ExportControlsInteracted();
    void pressLoopPlayback();
    void pressSlowPlayback();
    void pressResetAdjustmentValues();
    void pressGoToStep4();
    void pressStartOver();
    void pressTrimStartToPlayhead();
    void pressTrimEndToPlayhead();

    // Projects.
    /// Brings projectState up to date and then shows the save panel. In Steps 3 and 4 only.
    void prepareProjectForSave();
    /// Writes projectState, as it was prepared, to where the save panel says.
    void saveProject(const zumeta::FileUrl& url);
    /// What the open panel gives.
    void importProject(const std::vector<zumeta::FileUrl>& urls);
    void projectImportFailed(const QString& error);
    void loadProject(const zumeta::FileUrl& url);
    /// The user's replacement for missing media; all values stay.
    void reconnectAboveVideo(const std::vector<zumeta::FileUrl>& urls) { reconnectVideo(Side::above, urls); }
    void reconnectBelowVideo(const std::vector<zumeta::FileUrl>& urls) { reconnectVideo(Side::below, urls); }

    // Swimmers in the picture. Dormant: nothing finds any.
    /// A click into a view of this size: selects the person there, or deselects the selected one.
    void selectPerson(QPointF at, QSizeF in);

    // Exporting.
    /// Asks for a place and exports to it. Does nothing but close the sheet while an export runs or a place is being
    /// asked for. `showWatermark` is received and not honoured: no exported file carries the mark.
    void exportVideo(bool showWatermark);
    /// The session is free for the next export at once; the pipeline ends within a frame and leaves no file.
    void cancelExport();
    void dismissExportNotification();

Q_SIGNALS:
    /// The project that was opened last is in force, and its videos are loaded as far as they can be.
    void projectRestored();
    void projectLoadFailed(const QString& error);

private:
    // Workflow.
    void stepChanged(WorkflowStep oldStep);
    void enterSideStep(Side side, WorkflowStep oldStep);
    void enterStep3(WorkflowStep oldStep);
    void enterStep4(WorkflowStep oldStep);
    void unloadVideo(Side side);
    void clearVideo(Side side);
    void resetSideOnly(Side side, WorkflowStep step);
    void setStartTime(Side side, double seconds);
    void setAlignmentState(AlignmentState state);
    bool isCompositeStep() const { return m_fields.currentStep >= WorkflowStep::step3; }
    /// The side that the step works on; absent in Steps 3 and 4.
    std::optional<Side> stepSide() const;

    // Bindings.
    void setupBindings();
    void bindPlayer(Side side);
    void bindNotifications();
    void observe(const QString& name, void (CompositorViewModel::*handler)(const QVariantMap&));
    void post(void (CompositorViewModel::*work)());
    void stepFramesRequested(const QVariantMap& userInfo);
    void markSyncPointRequested(const QVariantMap& userInfo);
    void togglePlaybackRequested(const QVariantMap& userInfo);
    void pauseRequested(const QVariantMap& userInfo);
    void adjustPlaybackRateRequested(const QVariantMap& userInfo);
    void setTrimPointRequested(const QVariantMap& userInfo);
    void deleteTrimMarkerRequested(const QVariantMap& userInfo);
    void navigateTrimMarkerRequested(const QVariantMap& userInfo);
    void undoRequested(const QVariantMap& userInfo);
    void redoRequested(const QVariantMap& userInfo);

    // Video admission.
    enum class Admission { asksOtherSide, isGranted };
    void loadVideo(Side side, const std::vector<FileUrl>& urls, Admission admission = Admission::asksOtherSide);
    Task<> admitAndLoad(Side side, std::vector<FileUrl> urls, std::optional<FileUrl> otherURL, QUuid requestID);
    std::optional<VideoAsset>& videoAsset(Side side);
    bool isCurrentLoad(Side side, const QUuid& requestID) const { return m_loadRequestID[side] == requestID; }
    Task<> checkAndLoad(Side side, std::vector<FileUrl> urls, FileUrl otherURL, QUuid requestID);
    Task<> performLoad(Side side, std::vector<FileUrl> urls, QUuid requestID);
    Task<bool> loadIntoPlayer(Side side, std::vector<FileUrl> urls, QUuid requestID);
    void loadHasEnded(Side side, const QUuid& requestID);
    void startProxy(Side side, const FileUrl& url, const QUuid& requestID);
    void takeProxy(Side side, const FileUrl& source, const FileUrl& proxy, const QUuid& requestID);
    void lookAtShape(Side side, const VideoTrack& track);
    void finishLoad(Side side);
    Task<> showErrorAlert(QString titleKey, QString messageKey);
    Task<bool> showConfirmationAlert(QString titleKey, QString messageKey);
    bool retainAccess(const FileUrl& url);
    void releaseSecurityScopedResources();

    // Transport.
    CompositeTimeline compositeTimeline() const;
    void updateDuration();
    bool isLockedInItsOwnStep() const;
    void playComposite();
    void seekPlayer(Side side, double mediaTime, SeekTolerance tolerance);
    void seekIfAway(Side side, double mediaTime);
    void seekComposite(double time, SeekTolerance tolerance);
    void setPlayerRate(Side side, double rate);
    void followSlowPlaybackSwitch();
    bool standsAtAnEnd(Side side) const;
    void bringSidesTogether();
    void holdSidesAtAnEnd(double compositeTime);
    bool clockHasEnded() const;
    void timeReported(Side side, double seconds);
    void compositeTimeReported(double belowMediaTime);
    void loopStep3(double compositeTime);
    void keepInsideTrimRange();
    void guardTrimLoopFor(double seconds);
    void readBackSteppedTime();

    // Sync and alignment.
    void toggleLock(Side side);
    void markSync(Side side);
    void takeWaterlinePick(double y);

    // Trims and markers.
    void moveTrimStart(double position, double shortestRange);
    void moveTrimEnd(double position, double shortestRange);
    double markerMeantBy(double time) const;
    void goToMarker(double time);

    // Step-edit history.
    StepEditSnapshot currentStepEditSnapshot() const;
    void writeStepEditValues(const StepEditSnapshot& snapshot);
    void restoreStepEditSnapshot(const StepEditSnapshot& snapshot);

    // Projects.
    QString filenameTimestamp() const;
    Task<> refreshBookmarks(uint64_t request);
    Task<> writeProject(FileUrl url);
    Task<> openProject(FileUrl url, uint64_t request);
    bool isCurrentProject(uint64_t request) const { return m_restoredProject && m_restoredProject->request == request; }
    void takeProject(ProjectState state, uint64_t request);
    Task<std::vector<BookmarkOutcome>> resolveBookmarks(ProjectState state, FileUrl projectURL);
    void loadFoundFiles(const std::vector<BookmarkOutcome>& outcomes);
    std::optional<FileUrl> accessResolved(const BookmarkOutcome& outcome);
    void loadRestoredVideos();
    void putProjectInForce(const FileUrl& url);
    void applyRestoredProject();
    void projectLoadHasEnded(Side side, const QUuid& requestID);
    void setRestoredStep(WorkflowStep step);
    void reconnectVideo(Side side, const std::vector<FileUrl>& urls);
    bool isReconnecting(Side side) const;
    VideoCompositionConfig configToReconnect() const;
    Task<> reconnect(Side side, std::vector<FileUrl> urls, QUuid requestID);
    void finishReconnect(Side side);

    // Exporting.
    Task<> chooseOutput();
    Task<bool> showFileExistsConfirmation(FileUrl url);
    void performExport(const FileUrl& url);
    Task<> runExport(std::shared_ptr<Exporter> service, uint64_t number, FileUrl url);
    void startExport(uint64_t exportNumber);
    void showExportProgress(uint64_t exportNumber, double fraction);
    void finishExport(uint64_t exportNumber, const FileUrl& url, const ExportOutcome& outcome);
    void tellOfFailure(const ExportError& error);
    void showExportNotification(const QString& titleKey, const QString& message, bool isError);
    Task<> showInsufficientStorageAlert(StorageRequirement requirement);

    VideoPlayerService& playerService(Side side) { return *m_playerServices[side]; }
    const VideoPlayerService& playerService(Side side) const { return *m_playerServices[side]; }
    Player& player(Side side) { return playerService(side).player(); }

    SessionEnvironment m_environment;
    std::vector<FileUrl> m_securityScopedURLs;
    Sides<QUuid> m_loadRequestID; ///< of the newest load of each side
    Sides<QUuid> m_loadUnderWay;  ///< of the load that a side's URL is of, until it has ended
    bool m_isSeekingForTrimLoop = false;
    StepEditHistory m_stepEditHistory;
    bool m_isRestoringStepEditSnapshot = false;
    bool m_shouldShowWatermark = false;
    /// From the choice of a place on until the export is over or cancelled; one that lacked a video stays until the
    /// next.
    std::shared_ptr<Exporter> m_activeExportService;
    uint64_t m_newestChosenExport = 0; ///< exports are numbered in the order of their choice
    uint64_t m_newestExport = 0;       ///< the last that has started: the fields are its own
    bool m_isChoosingOutput = false;
    std::unique_ptr<SleepInhibitor::Inhibition> m_sleepInhibition; ///< while an export runs
    Sides<std::unique_ptr<VideoPlayerService>> m_playerServices;
    ProxyService m_proxyService;
    ClapDetectionService m_clapDetectionService;
    MotionStartDetectionService m_motionStartDetectionService;
    MotionAnalysisService m_motionAnalysisService;
    bool m_isRestoringProjectStep = false; ///< while the opening of a project assigns the step
    Step3Bases m_bases;
    std::optional<RestoredProject> m_restoredProject;
    uint64_t m_projectRequest = 0; ///< counts the openings
    uint64_t m_newestProject = 0;  ///< the latest one that was read; earlier ones come too late
    uint64_t m_keepRequest = 0;    ///< counts the preparations of a save
    /// The work that missing media shall come back into.
    struct Reconnection {
        VideoCompositionConfig config;
        Step3Bases bases;
        Sides<QUuid> requestID; ///< of the loads that are under way
    };
    Reconnection m_reconnection;

    /// The rate that both sides were given together in Steps 3 and 4; 0 when they were not.
    double m_compositeRate = 0;
    bool m_sidesAreHeld = false; ///< together, where the composite ends
};

}
