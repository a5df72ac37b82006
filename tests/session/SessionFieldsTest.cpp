// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/SessionHarness.h"

#include <QDateTime>
#include <QLocale>
#include <QMetaProperty>

namespace zumeta {
namespace {

using namespace test;

struct FreshSession : SessionTest {};

TEST_F(FreshSession, ShowsTheCompositeAlthoughItIsInStepOne)
{
    EXPECT_EQ(session->viewMode(), ViewMode::split);
    EXPECT_EQ(session->currentStep(), WorkflowStep::step1);
    EXPECT_EQ(session->maxReachedStep(), WorkflowStep::step1);
    EXPECT_FALSE(session->canExport());
    EXPECT_TRUE(session->showDropZoneAboveHighlight());
    EXPECT_EQ(session->duration(), 0);
}

TEST_F(FreshSession, HasNoVideosAndNothingPlaying)
{
    EXPECT_EQ(session->aboveVideoURL(), std::nullopt);
    EXPECT_EQ(session->belowVideoURL(), std::nullopt);
    EXPECT_FALSE(session->isPlaying());
    EXPECT_EQ(session->currentTime(), 0);
    EXPECT_FALSE(session->isAboveMissing());
    EXPECT_FALSE(session->isBelowMissing());
    EXPECT_FALSE(session->showMissingFileAlert());
    EXPECT_EQ(session->aboveProxyStatus(), ProxyStatus());
    EXPECT_EQ(session->belowProxyStatus(), ProxyStatus());
    EXPECT_FALSE(session->isAboveVideoBlack());
    EXPECT_FALSE(session->isBelowVideoBlack());
}

TEST_F(FreshSession, HasANewProjectOfThisMoment)
{
    const ProjectState& project = session->projectState();
    EXPECT_EQ(project.version, 1);
    EXPECT_EQ(project.name, QStringLiteral("Untitled Project"));
    EXPECT_EQ(project.createdAt, wallClock.time);
    EXPECT_EQ(project.modifiedAt, wallClock.time);
    EXPECT_EQ(project.aboveVideo, std::nullopt);
    EXPECT_EQ(project.belowVideo, std::nullopt);
    EXPECT_EQ(project.exportSettings, ExportSettings());
    EXPECT_EQ(project.step3BaseWaterlineHeight, std::nullopt);
    EXPECT_EQ(project.step3BaseAboveOffset, std::nullopt);
    EXPECT_EQ(project.step3BaseAboveHorizontalOffset, std::nullopt);
    EXPECT_EQ(project.step3RelativeWaterlineHeight, std::nullopt);
    EXPECT_EQ(project.step3RelativeAboveOffset, std::nullopt);
    EXPECT_EQ(project.step3RelativeAboveHorizontalOffset, std::nullopt);
    EXPECT_EQ(project.projectAspectRatio, (AspectRatio{16, 9}));
    EXPECT_EQ(project.projectConfig, session->projectConfig());
}

TEST_F(FreshSession, HasItsAdjustmentsAtZeroExceptTheBlend)
{
    VideoCompositionConfig zero;
    EXPECT_EQ(session->projectConfig(), zero);
    EXPECT_EQ(session->blendAmount(), 15);
    EXPECT_EQ(session->aboveZoom(), 0);
    EXPECT_EQ(session->timingOffset(), 0);
    EXPECT_EQ(session->relativeWaterlineHeight(), 0);
    EXPECT_EQ(session->relativeAboveOffset(), 0);
    EXPECT_EQ(session->relativeAboveHorizontalOffset(), 0);
}

TEST_F(FreshSession, LoopsInStepThreeAtFullSpeed)
{
    EXPECT_TRUE(session->isStep3LoopEnabled());
    EXPECT_FALSE(session->isStep3SlowPlaybackEnabled());
    EXPECT_EQ(session->activePlaybackRate(), 1);
}

TEST_F(FreshSession, IsNeitherLockedNorPickingNorFullScreen)
{
    EXPECT_EQ(session->alignmentState(), AlignmentState::none);
    EXPECT_EQ(session->hoverY(), std::nullopt);
    EXPECT_EQ(session->alignmentPointAbove(), std::nullopt);
    EXPECT_EQ(session->alignmentPointBelow(), std::nullopt);
    EXPECT_EQ(session->manualSyncTimeAbove(), std::nullopt);
    EXPECT_EQ(session->manualSyncTimeBelow(), std::nullopt);
    EXPECT_EQ(session->syncStatusMessage(), std::nullopt);
    EXPECT_FALSE(session->syncStatusIsError());
    EXPECT_FALSE(session->isAdjustingWaterline());
    EXPECT_FALSE(session->isFullScreen());
    EXPECT_FALSE(session->hasSliderBeenMoved());
    EXPECT_FALSE(session->isTimelineSliderDragging());
    EXPECT_FALSE(session->hasInteractedWithStep3Adjustments());
    EXPECT_FALSE(session->hasInteractedWithStep4ExportControls());
}

TEST_F(FreshSession, HasNothingOfTrimsExportsAndAnalysis)
{
    EXPECT_TRUE(session->trimMarkers().empty());
    EXPECT_EQ(session->selectedTrimMarker(), std::nullopt);
    EXPECT_EQ(session->stepEditHistory().undoCount(), 0u);
    EXPECT_EQ(session->stepEditHistory().redoCount(), 0u);
    EXPECT_FALSE(session->isExporting());
    EXPECT_EQ(session->exportProgress(), 0);
    EXPECT_EQ(session->exportNotification(), std::nullopt);
    EXPECT_EQ(session->selectedResolution(), ExportResolutionType::hd720);
    EXPECT_FALSE(session->showExportSheet());
    EXPECT_FALSE(session->shouldShowWatermark());
    EXPECT_FALSE(session->showSaveProjectPanel());
    EXPECT_FALSE(session->showOpenProjectPanel());
    EXPECT_EQ(session->projectSaveDefaultFilename(), QStringLiteral("Zumeta"));
    EXPECT_FALSE(session->isDetectingClap());
    EXPECT_EQ(session->aboveClapTime(), std::nullopt);
    EXPECT_EQ(session->belowClapTime(), std::nullopt);
    EXPECT_FALSE(session->showSkeletonOverlay());
    EXPECT_TRUE(session->detectedSkeletons().empty());
    EXPECT_EQ(session->selectedPersonId(), std::nullopt);
    EXPECT_EQ(session->selectedCamera(), CameraType::gopro);
    EXPECT_FALSE(session->isCameraSelectionConfirmed());
}

TEST_F(FreshSession, NumbersItsStepsFromOne)
{
    EXPECT_EQ(int(WorkflowStep::step1), 1);
    EXPECT_EQ(int(WorkflowStep::step4), 4);
    EXPECT_LT(WorkflowStep::step2, WorkflowStep::step3);
}

struct Publishing : SessionTest {
    /// How often the signal comes from now on.
    template <typename Signal> std::shared_ptr<int> count(Signal signal)
    {
        auto number = std::make_shared<int>(0);
        QObject::connect(session.get(), signal, [number] { ++*number; });
        return number;
    }
};

TEST_F(Publishing, TellsOfAFieldOnceAnOperationHowOftenItMayHaveBeenWritten)
{
    enterComposite(WorkflowStep::step3, {60, 0}, {60, 0});
    session->seek(10, true);
    const auto times = count(&PublishedFields::currentTimeChanged);
    const auto all = count(&PublishedFields::changed);
    session->resetBelowStepOnly();
    EXPECT_EQ(*times, 1);
    EXPECT_EQ(*all, 1);
}

TEST_F(Publishing, TellsOnlyWhenAllFieldsAgree)
{
    loadBoth();
    lockBoth(10, 4);
    std::vector<bool> agreed;
    QObject::connect(session.get(), &PublishedFields::currentStepChanged, [&] {
        agreed.push_back(session->viewMode() == ViewMode::split && session->projectConfig().isSynced &&
                         session->duration() == 54 && session->currentTime() == 0);
    });
    session->setCurrentStep(WorkflowStep::step3);
    EXPECT_THAT(agreed, testing::ElementsAre(true));
}

TEST_F(Publishing, IsSilentWhereNothingIsDifferent)
{
    const auto all = count(&PublishedFields::changed);
    session->setFullScreen(false);
    session->setCurrentStep(WorkflowStep::step1);
    EXPECT_EQ(*all, 1) << "the view mode of the step";
}

TEST_F(Publishing, AnObserverMayBeginTheNextOperation)
{
    loadBoth();
    std::vector<double> seen;
    QObject::connect(session.get(), &PublishedFields::currentTimeChanged, [&] {
        seen.push_back(session->currentTime());
        if (session->currentTime() == 5)
            session->seek(7, true);
    });
    session->seek(5, true);
    EXPECT_THAT(seen, testing::ElementsAre(5, 7));
}

TEST_F(Publishing, AnObserverMayEndTheSession)
{
    QObject::connect(session.get(), &PublishedFields::isFullScreenChanged, [&] { session.reset(); });
    session->setFullScreen(true);
    EXPECT_EQ(session, nullptr);
}

TEST_F(Publishing, TheConfigIsMirroredIntoTheProjectAtOnce)
{
    std::vector<bool> mirrored;
    QObject::connect(session.get(), &PublishedFields::projectConfigChanged,
                     [&] { mirrored.push_back(session->projectState().projectConfig == session->projectConfig()); });
    session->setBlendAmount(40);
    session->setRelativeAboveOffset(-3);
    EXPECT_EQ(session->projectState().projectConfig.blendAmount, 40);
    EXPECT_THAT(mirrored, testing::ElementsAre(true, true));
}

TEST_F(Publishing, FieldsAreReachableByName)
{
    session->setProperty("isFullScreen", true);
    EXPECT_TRUE(session->property("isFullScreen").toBool());
    session->setProperty("currentStep", QVariant::fromValue(WorkflowStep::step2));
    EXPECT_EQ(session->currentStep(), WorkflowStep::step2);
    EXPECT_TRUE(session->property("showDropZoneBelowHighlight").toBool());
}

TEST_F(Publishing, EachFieldHasASignalThatIsCalledAsItself)
{
    const QMetaObject& fields = PublishedFields::staticMetaObject;
    ASSERT_GT(fields.propertyCount(), fields.propertyOffset());
    for (int i = fields.propertyOffset(); i < fields.propertyCount(); ++i) {
        const QMetaProperty field = fields.property(i);
        EXPECT_EQ(field.notifySignal().name(), field.name() + QByteArray("Changed"));
    }
}

TEST_F(Publishing, EverySwitchTellsOfItselfAlone)
{
    const std::pair<const char*, void (PublishedFields::*)()> switches[] = {
        {"isStep3LoopEnabled", &PublishedFields::isStep3LoopEnabledChanged},
        {"showExportSheet", &PublishedFields::showExportSheetChanged},
        {"showSaveProjectPanel", &PublishedFields::showSaveProjectPanelChanged},
        {"showOpenProjectPanel", &PublishedFields::showOpenProjectPanelChanged},
        {"isCameraSelectionConfirmed", &PublishedFields::isCameraSelectionConfirmedChanged},
        {"hasSliderBeenMoved", &PublishedFields::hasSliderBeenMovedChanged},
        {"isTimelineSliderDragging", &PublishedFields::isTimelineSliderDraggingChanged},
        {"hasInteractedWithStep3Adjustments", &PublishedFields::hasInteractedWithStep3AdjustmentsChanged},
        {"hasInteractedWithStep4ExportControls", &PublishedFields::hasInteractedWithStep4ExportControlsChanged},
        {"showMissingFileAlert", &PublishedFields::showMissingFileAlertChanged},
        {"isFullScreen", &PublishedFields::isFullScreenChanged},
    };
    std::vector<std::string> told;
    for (const auto& [name, signal] : switches)
        QObject::connect(session.get(), signal, session.get(), [&told, name] { told.emplace_back(name); });
    for (const auto& [name, signal] : switches) {
        told.clear();
        session->setProperty(name, !session->property(name).toBool());
        EXPECT_THAT(told, testing::ElementsAre(name));
    }
}

struct DerivedValues : SessionTest {};

TEST_F(DerivedValues, TheExportIsAsLongAsTheTrimsLeave)
{
    enterComposite(WorkflowStep::step4, {60, 0}, {60, 0});
    edit([](VideoCompositionConfig& config) {
        config.exportTrimStartSeconds = 12.5;
        config.exportTrimEndSeconds = 7;
    });
    EXPECT_DOUBLE_EQ(session->effectiveExportDuration(), 40.5);
    edit([](VideoCompositionConfig& config) { config.exportTrimEndSeconds = 55; });
    EXPECT_EQ(session->effectiveExportDuration(), 0);
}

TEST_F(DerivedValues, SlowPlaybackIsForStepThreeAlone)
{
    enterComposite(WorkflowStep::step3, {60, 0}, {60, 0});
    session->toggleStep3SlowPlayback();
    EXPECT_EQ(session->activePlaybackRate(), 0.5);
    session->setCurrentStep(WorkflowStep::step4);
    EXPECT_EQ(session->activePlaybackRate(), 1);
}

TEST_F(DerivedValues, TheCurrentVideoAndLockAreTheSteps)
{
    loadBoth();
    lockBoth(10, 4);
    session->setCurrentStep(WorkflowStep::step1);
    EXPECT_EQ(session->currentVideoURL(), FileUrl("/above.mp4"));
    EXPECT_EQ(session->currentManualSyncTime(), 10);
    session->setCurrentStep(WorkflowStep::step2);
    EXPECT_EQ(session->currentVideoURL(), FileUrl("/below.mp4"));
    EXPECT_EQ(session->currentManualSyncTime(), 4);
    for (const WorkflowStep step : {WorkflowStep::step3, WorkflowStep::step4}) {
        session->setCurrentStep(step);
        EXPECT_EQ(session->currentVideoURL(), std::nullopt);
        EXPECT_EQ(session->currentManualSyncTime(), std::nullopt);
    }
}

TEST_F(DerivedValues, OneVideoIsEnoughToExportThoughTheCompositeIsEmpty)
{
    loadBelow("/below.mp4");
    EXPECT_TRUE(session->canExport());
    session->setCurrentStep(WorkflowStep::step3);
    EXPECT_EQ(session->duration(), 0);
}

TEST_F(DerivedValues, TheFileNameHoldsTheSizeAndTheLocalTime)
{
    wallClock.time = std::chrono::sys_days(std::chrono::year(2026) / 1 / 2) + std::chrono::hours(13);
    const QDateTime local = QDateTime::fromSecsSinceEpoch(wallClock.time.time_since_epoch().count());
    session->setSelectedResolution(ExportResolutionType::hd1440);
    EXPECT_EQ(session->defaultOutputFilenameBase(),
              QStringLiteral("Zumeta_1440p_") + local.toString(QStringLiteral("yyyy_MMdd_HHmm")));
    EXPECT_TRUE(session->defaultOutputFilenameBase().startsWith(QStringLiteral("Zumeta_1440p_2026_010")));
}

TEST_F(DerivedValues, TheFileNameHasPlainDigitsInEveryLocale)
{
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::Arabic, QLocale::Egypt));
    EXPECT_THAT(session->defaultOutputFilenameBase().toStdString(),
                testing::MatchesRegex("Zumeta_720p_2026_03[0-9]{2}_[0-9]{4}"));
    QLocale::setDefault(before);
}

struct Highlights : SessionTest {
    std::vector<bool> shown()
    {
        return {session->showDropZoneAboveHighlight(), session->showDropZoneBelowHighlight(),
                session->showTimelineHighlight(), session->showMarkButtonHighlight(), session->showTapAreaHighlight()};
    }
    static auto are(bool above, bool below, bool timeline, bool mark, bool tap)
    {
        return testing::ElementsAre(above, below, timeline, mark, tap);
    }
};

TEST_F(Highlights, LeadTheUserThroughAStep)
{
    session->setCurrentStep(WorkflowStep::step1);
    EXPECT_THAT(shown(), are(true, false, false, false, false));
    loadAbove("/above.mp4");
    EXPECT_THAT(shown(), are(false, false, true, false, false));
    session->seek(3, true);
    EXPECT_THAT(shown(), are(false, false, true, true, false));
    session->toggleAboveLock();
    EXPECT_THAT(shown(), are(false, false, false, false, true));
    session->onPickWaterline(0.5);
    advance(0.1);
    EXPECT_THAT(shown(), are(false, false, false, false, false));
    session->setCurrentStep(WorkflowStep::step2);
    EXPECT_THAT(shown(), are(false, true, false, false, false));
}

TEST_F(Highlights, TheLockButtonWaitsUntilTheVideoStandsAwayFromItsBeginning)
{
    loadAbove("/above.mp4");
    session->seek(0.1, true);
    EXPECT_FALSE(session->showMarkButtonHighlight());
    session->seek(0.11, true);
    EXPECT_TRUE(session->showMarkButtonHighlight());
    session->play();
    EXPECT_FALSE(session->showMarkButtonHighlight());
}

TEST_F(Highlights, TheTapAreaIsForThePickOfTheStepAlone)
{
    loadBoth();
    session->setCurrentStep(WorkflowStep::step2);
    session->toggleAboveLock();
    EXPECT_EQ(session->alignmentState(), AlignmentState::pickingAbove);
    EXPECT_FALSE(session->showTapAreaHighlight());
    session->toggleBelowLock();
    EXPECT_TRUE(session->showTapAreaHighlight());
}

TEST_F(Highlights, NoneIsShownInTheLaterSteps)
{
    session->setCurrentStep(WorkflowStep::step3);
    EXPECT_THAT(shown(), are(false, false, false, false, false));
    session->setCurrentStep(WorkflowStep::step4);
    EXPECT_THAT(shown(), are(false, false, false, false, false));
}

}
}
