// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/SessionHarness.h"

namespace zumeta {
namespace {

using namespace test;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr auto kStep1 = WorkflowStep::step1;
constexpr auto kStep2 = WorkflowStep::step2;
constexpr auto kStep3 = WorkflowStep::step3;
constexpr auto kStep4 = WorkflowStep::step4;

struct Resets : SessionTest {
    Resets()
    {
        loadBoth();
        lockBoth(10, 4);
        session->onPickWaterline(0.6);
        advance(0.1);
        session->setCurrentStep(kStep1);
        session->toggleAboveLock();
        session->seek(10, true);
        session->toggleAboveLock();
        session->onPickWaterline(0.4);
        advance(0.1);
    }
};

TEST_F(Resets, ClearingASideEmptiesIt)
{
    session->setCurrentStep(kStep3);
    session->seek(5, true);
    session->clearAboveVideo();
    EXPECT_EQ(session->aboveVideoURL(), std::nullopt);
    EXPECT_EQ(session->projectState().aboveVideo, std::nullopt);
    EXPECT_FALSE(above().hasCurrentItem());
    EXPECT_EQ(session->manualSyncTimeAbove(), std::nullopt);
    EXPECT_EQ(session->alignmentPointAbove(), std::nullopt);
    EXPECT_EQ(session->alignmentState(), AlignmentState::none);
    EXPECT_EQ(session->currentTime(), 0);
    EXPECT_EQ(session->duration(), 0);
    EXPECT_EQ(session->proxyService().aboveVideoStatus(), ProxyStatus());
}

TEST_F(Resets, ClearingASideLeavesTheOtherAndTheConfig)
{
    const VideoCompositionConfig config = session->projectConfig();
    EXPECT_TRUE(config.isSynced);
    session->clearAboveVideo();
    EXPECT_EQ(session->projectConfig(), config);
    EXPECT_EQ(session->belowVideoURL(), FileUrl("/below.mp4"));
    EXPECT_EQ(session->manualSyncTimeBelow(), 4);
    EXPECT_EQ(session->alignmentPointBelow(), 0.6);
    EXPECT_TRUE(below().hasCurrentItem());
    EXPECT_THAT(fileAccess.stopped, IsEmpty());
}

TEST_F(Resets, ClearingTheBelowSideMirrorsTheAboveOne)
{
    ASSERT_EQ(session->currentTime(), 10);
    session->clearBelowVideo();
    EXPECT_EQ(session->currentTime(), 0);
    EXPECT_EQ(session->belowVideoURL(), std::nullopt);
    EXPECT_EQ(session->projectState().belowVideo, std::nullopt);
    EXPECT_EQ(session->manualSyncTimeBelow(), std::nullopt);
    EXPECT_EQ(session->alignmentPointBelow(), std::nullopt);
    EXPECT_EQ(session->manualSyncTimeAbove(), 10);
    EXPECT_EQ(session->projectConfig().belowStartTime, 4);
}

TEST_F(Resets, ClearingDoesNotStopTheOtherSideNorTheIntention)
{
    session->setCurrentStep(kStep3);
    session->play();
    session->clearAboveVideo();
    EXPECT_TRUE(session->isPlaying());
    EXPECT_EQ(below().rate(), 1);
}

TEST_F(Resets, ClearingTwiceChangesNothingMore)
{
    session->clearAboveVideo();
    session->clearAboveVideo();
    EXPECT_EQ(session->aboveVideoURL(), std::nullopt);
    EXPECT_EQ(session->manualSyncTimeBelow(), 4);
}

TEST_F(Resets, TheAboveStepStartsAgainInStepOne)
{
    session->setCurrentStep(kStep4);
    session->setHasSliderBeenMoved(true);
    session->resetAboveStepOnly();
    EXPECT_EQ(session->aboveVideoURL(), std::nullopt);
    EXPECT_EQ(session->projectConfig().aboveStartTime, 0);
    EXPECT_EQ(session->projectConfig().belowStartTime, 4);
    EXPECT_FALSE(session->projectConfig().isSynced);
    EXPECT_FALSE(session->hasSliderBeenMoved());
    EXPECT_EQ(session->currentStep(), kStep1);
    EXPECT_EQ(session->maxReachedStep(), kStep1);
    EXPECT_EQ(session->viewMode(), ViewMode::aboveOnly);
    EXPECT_EQ(session->manualSyncTimeBelow(), 4);
}

TEST_F(Resets, TheBelowStepStartsAgainInStepTwo)
{
    session->setCurrentStep(kStep4);
    session->resetBelowStepOnly();
    EXPECT_EQ(session->belowVideoURL(), std::nullopt);
    EXPECT_EQ(session->projectConfig().belowStartTime, 0);
    EXPECT_EQ(session->projectConfig().aboveStartTime, 10);
    EXPECT_FALSE(session->projectConfig().isSynced);
    EXPECT_EQ(session->currentStep(), kStep2);
    EXPECT_EQ(session->maxReachedStep(), kStep2);
}

TEST_F(Resets, TheBelowStepWithoutAnAboveVideoLandsInStepOne)
{
    session->clearAboveVideo();
    session->resetBelowStepOnly();
    EXPECT_EQ(session->currentStep(), kStep1);
    EXPECT_EQ(session->maxReachedStep(), kStep1);
}

TEST_F(Resets, OfTheProjectPutsEverythingOfItBack)
{
    session->setCurrentStep(kStep4);
    edit([](VideoCompositionConfig& config) {
        config.blendAmount = 3;
        config.exportTrimEndSeconds = 5;
    });
    session->setShowMissingFileAlert(true);
    wallClock.time += std::chrono::hours(5);
    session->resetProject();
    EXPECT_EQ(session->aboveVideoURL(), std::nullopt);
    EXPECT_EQ(session->belowVideoURL(), std::nullopt);
    EXPECT_FALSE(session->showMissingFileAlert());
    EXPECT_EQ(session->projectState(), ProjectState::createdNow(wallClock));
    EXPECT_EQ(session->projectConfig(), VideoCompositionConfig());
    EXPECT_EQ(session->currentStep(), kStep1);
    EXPECT_EQ(session->maxReachedStep(), kStep1);
    EXPECT_EQ(session->viewMode(), ViewMode::aboveOnly);
    EXPECT_THAT(fileAccess.stopped, ElementsAre(FileUrl("/above.mp4"), FileUrl("/below.mp4")));
}

TEST_F(Resets, OfTheProjectLeaveTheUsersChoices)
{
    session->setSelectedCamera(CameraType::insta360);
    session->setCameraSelectionConfirmed(true);
    session->setSelectedResolution(ExportResolutionType::uhd4k);
    session->setStep3LoopEnabled(false);
    session->toggleStep3SlowPlayback();
    session->setCurrentStep(kStep3);
    const double base = session->projectConfig().aboveOffset;
    ASSERT_GT(base, 0);
    session->play();
    session->resetProject();
    EXPECT_EQ(session->selectedCamera(), CameraType::insta360);
    EXPECT_TRUE(session->isCameraSelectionConfirmed());
    EXPECT_EQ(session->selectedResolution(), ExportResolutionType::uhd4k);
    EXPECT_FALSE(session->isStep3LoopEnabled());
    EXPECT_TRUE(session->isStep3SlowPlaybackEnabled());
    EXPECT_EQ(session->relativeAboveOffset(), -base);
    EXPECT_TRUE(session->isPlaying());
}

TEST_F(Resets, OfStepThreeGoBackToTheBases)
{
    session->setCurrentStep(kStep3);
    session->seek(5, true);
    session->setRelativeWaterlineHeight(8);
    session->setRelativeAboveOffset(9);
    session->setRelativeAboveHorizontalOffset(10);
    session->setAboveZoom(11);
    session->setTimingOffset(12);
    session->setBlendAmount(13);
    edit([](VideoCompositionConfig& config) { config.exportTrimEndSeconds = 1; });
    above().seeks.clear();
    session->resetStep3AdjustmentValues();
    EXPECT_EQ(session->relativeWaterlineHeight(), 0);
    EXPECT_EQ(session->relativeAboveOffset(), 0);
    EXPECT_EQ(session->relativeAboveHorizontalOffset(), 0);
    EXPECT_EQ(session->aboveZoom(), 0);
    EXPECT_EQ(session->timingOffset(), 0);
    EXPECT_EQ(session->blendAmount(), 15);
    EXPECT_EQ(session->projectConfig().exportTrimEndSeconds, 1);
    EXPECT_EQ(session->projectConfig().aboveStartTime, 10);
    ASSERT_THAT(above().seeks, SizeIs(1));
    EXPECT_EQ(above().seeks[0].target.seconds(), 11);
}

TEST_F(Resets, OfAStepEndWithACoarseSeekToTheBeginning)
{
    session->setCurrentStep(kStep4);
    below().seeks.clear();
    session->resetBelowStepOnly();
    ASSERT_THAT(below().seeks, SizeIs(1));
    EXPECT_EQ(below().seeks[0].target, MediaTime{});
    EXPECT_EQ(below().seeks[0].tolerance, SeekTolerance::infinite);
    session->setCurrentStep(kStep4);
    above().seeks.clear();
    session->resetAboveStepOnly();
    ASSERT_THAT(above().seeks, SizeIs(1));
    EXPECT_EQ(above().seeks[0].target, MediaTime{});
    EXPECT_EQ(above().seeks[0].tolerance, SeekTolerance::infinite);
}

struct ResetsOfNothing : SessionTest {};

TEST_F(ResetsOfNothing, AreToldOfAllTheSame)
{
    int changes = 0;
    QObject::connect(session.get(), &PublishedFields::changed, session.get(), [&] { ++changes; });
    session->clearAboveVideo();
    EXPECT_EQ(changes, 1);
    session->clearBelowVideo();
    EXPECT_EQ(changes, 2);
    session->resetStep3AdjustmentValues();
    EXPECT_EQ(changes, 3);
}

/// Holds what became of an export.
struct StatusLine : Resets {
    void failToExport()
    {
        dialogs.savePlace = FileUrl("/nowhere/swim.mp4");
        exportScript.error.emplace(ExportError::Case::unknown);
        session->exportVideo(false);
        advance(20);
        ASSERT_TRUE(session->syncStatusMessage());
    }
};

TEST_F(StatusLine, IsEmptyAfterTheResetOfTheAboveStep)
{
    failToExport();
    session->resetAboveStepOnly();
    EXPECT_EQ(session->syncStatusMessage(), std::nullopt);
}

TEST_F(StatusLine, IsEmptyAfterTheResetOfTheBelowStep)
{
    failToExport();
    session->setHasSliderBeenMoved(true);
    session->resetBelowStepOnly();
    EXPECT_EQ(session->syncStatusMessage(), std::nullopt);
    EXPECT_FALSE(session->hasSliderBeenMoved());
}

TEST_F(StatusLine, IsEmptyOnceALockIsReleased)
{
    failToExport();
    session->toggleBelowLock();
    EXPECT_EQ(session->syncStatusMessage(), std::nullopt);
    EXPECT_TRUE(session->syncStatusIsError()) << "what the next export's end says";
}

TEST_F(StatusLine, IsEmptyOnceAVideoIsLoaded)
{
    failToExport();
    loadBelow("/other.mp4");
    EXPECT_EQ(session->syncStatusMessage(), std::nullopt);
}

TEST_F(StatusLine, StaysWhenASideIsClearedOrTheStepChanges)
{
    failToExport();
    session->setCurrentStep(kStep2);
    session->clearBelowVideo();
    EXPECT_NE(session->syncStatusMessage(), std::nullopt);
}

}
}
