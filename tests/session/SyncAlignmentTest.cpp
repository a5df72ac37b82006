// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/movie/MediaTime.h"
#include "session/SessionHarness.h"

namespace zumeta {
namespace {

using namespace test;

constexpr auto kStep1 = WorkflowStep::step1;
constexpr auto kStep2 = WorkflowStep::step2;
constexpr auto kStep3 = WorkflowStep::step3;
constexpr auto kStep4 = WorkflowStep::step4;

struct Locks : SessionTest {
    Locks() { loadBoth({.duration = 60}, {.duration = 30}); }
    const VideoCompositionConfig& config() { return session->projectConfig(); }
};

TEST_F(Locks, TakeTheTimeOfThePlayhead)
{
    session->seek(10.123, true);
    session->toggleAboveLock();
    EXPECT_EQ(session->manualSyncTimeAbove(), 10.123);
    EXPECT_EQ(config().aboveStartTime, 10.123);
    EXPECT_EQ(session->currentTime(), 10.123);
    EXPECT_FALSE(config().isSynced);
    EXPECT_EQ(session->alignmentState(), AlignmentState::pickingAbove);
}

TEST_F(Locks, OfTheBelowSideMirrorTheAboveOne)
{
    session->setCurrentStep(kStep2);
    session->seek(4.5, true);
    session->toggleBelowLock();
    EXPECT_EQ(session->manualSyncTimeBelow(), 4.5);
    EXPECT_EQ(config().belowStartTime, 4.5);
    EXPECT_EQ(session->manualSyncTimeAbove(), std::nullopt);
    EXPECT_EQ(session->alignmentState(), AlignmentState::pickingBelow);
}

TEST_F(Locks, StopBothPlayers)
{
    session->play();
    session->setCurrentStep(kStep2);
    session->play();
    advance(1);
    session->toggleBelowLock();
    EXPECT_FALSE(session->isPlaying());
    EXPECT_EQ(above().rate(), 0);
    EXPECT_EQ(below().rate(), 0);
}

TEST_F(Locks, TakeWhatTheTimelineShowsNotWhereThePlayerIs)
{
    session->seek(5, true);
    above().seek({20, 1}, SeekTolerance::zero);
    advance(0.1);
    session->toggleAboveLock();
    EXPECT_EQ(session->manualSyncTimeAbove(), 5);
}

TEST_F(Locks, AreHeldInsideTheVideo)
{
    session->setCurrentStep(kStep1);
    session->seek(50, true);
    session->toggleBelowLock();
    EXPECT_EQ(session->manualSyncTimeBelow(), 30);
    EXPECT_EQ(session->currentTime(), 30);
}

TEST_F(Locks, WithoutAVideoTakeZero)
{
    session->seek(5, true);
    session->clearAboveVideo();
    session->toggleAboveLock();
    EXPECT_EQ(session->manualSyncTimeAbove(), 0);
}

TEST_F(Locks, OfBothSidesMakeTheProjectSynced)
{
    lockBoth(10, 4);
    EXPECT_TRUE(config().isSynced);
    EXPECT_EQ(config().aboveStartTime, session->manualSyncTimeAbove());
    EXPECT_EQ(config().belowStartTime, session->manualSyncTimeBelow());
}

TEST_F(Locks, InTheOtherOrderMakeItSyncedToo)
{
    session->setCurrentStep(kStep2);
    session->toggleBelowLock();
    session->setCurrentStep(kStep1);
    session->toggleAboveLock();
    EXPECT_TRUE(config().isSynced);
}

TEST_F(Locks, ReleasedOnOneSideLeaveTheOther)
{
    lockBoth(10, 4);
    session->onPickWaterline(0.3);
    advance(0.1);
    session->toggleBelowLock();
    EXPECT_EQ(session->manualSyncTimeBelow(), std::nullopt);
    EXPECT_EQ(session->alignmentPointBelow(), std::nullopt);
    EXPECT_EQ(config().belowStartTime, 0);
    EXPECT_FALSE(config().isSynced);
    EXPECT_EQ(session->alignmentState(), AlignmentState::none);
    EXPECT_EQ(session->manualSyncTimeAbove(), 10);
    EXPECT_EQ(config().aboveStartTime, 10);
}

TEST_F(Locks, ReleasedLeaveThePicturesValues)
{
    lockBoth(10, 4);
    edit([](VideoCompositionConfig& config) {
        config.waterlineHeight = 280;
        config.aboveOffset = 33;
    });
    session->toggleAboveLock();
    EXPECT_EQ(config().waterlineHeight, 280);
    EXPECT_EQ(config().aboveOffset, 33);
}

TEST_F(Locks, OfTheAboveSideReleasedTakeTheReachedStepBackToOne)
{
    lockBoth(10, 4);
    session->setCurrentStep(kStep4);
    session->toggleAboveLock();
    EXPECT_EQ(session->maxReachedStep(), kStep1);
    EXPECT_EQ(session->currentStep(), kStep4);
}

TEST_F(Locks, OfTheBelowSideReleasedTakeTheReachedStepBackToTwo)
{
    lockBoth(10, 4);
    session->setCurrentStep(kStep4);
    session->toggleBelowLock();
    EXPECT_EQ(session->maxReachedStep(), kStep2);
}

TEST_F(Locks, OfTheBelowSideReleasedLeaveALowerReachedStep)
{
    lockBoth(10, 4);
    session->toggleBelowLock();
    EXPECT_EQ(session->maxReachedStep(), kStep2);
    session->resetAboveStepOnly();
    session->toggleBelowLock();
    session->toggleBelowLock();
    EXPECT_EQ(session->maxReachedStep(), kStep1);
}

TEST_F(Locks, AreRestoredFromASyncedConfig)
{
    VideoCompositionConfig stored;
    stored.isSynced = true;
    stored.aboveStartTime = 3;
    stored.belowStartTime = 0;
    session->restoreManualSyncTimes(stored);
    EXPECT_EQ(session->manualSyncTimeAbove(), 3);
    EXPECT_EQ(session->manualSyncTimeBelow(), 0);
}

TEST_F(Locks, AreClearedByAConfigThatIsNotSyncedWhateverItsTimes)
{
    lockBoth(10, 4);
    VideoCompositionConfig stored;
    stored.aboveStartTime = 3;
    stored.belowStartTime = 7;
    session->restoreManualSyncTimes(stored);
    EXPECT_EQ(session->manualSyncTimeAbove(), std::nullopt);
    EXPECT_EQ(session->manualSyncTimeBelow(), std::nullopt);
}

struct WaterlinePicks : SessionTest {
    WaterlinePicks() { loadBoth(); }
    void pick(double y)
    {
        session->onPickWaterline(y);
        advance(0.01);
    }
    const VideoCompositionConfig& config() { return session->projectConfig(); }
};

TEST_F(WaterlinePicks, AfterBothLocksGiveTheShiftAndTheWaterline)
{
    session->toggleAboveLock();
    pick(0.4);
    session->setCurrentStep(kStep2);
    session->toggleBelowLock();
    pick(0.6);
    EXPECT_NEAR(config().aboveOffset, 120, 1e-9);
    EXPECT_NEAR(config().waterlineHeight, 295.08, 0.005);
}

TEST_F(WaterlinePicks, TakeTheCameraThatIsSelected)
{
    session->setSelectedCamera(CameraType::insta360);
    session->toggleAboveLock();
    pick(0.5);
    session->toggleBelowLock();
    pick(0.55);
    EXPECT_NEAR(config().waterlineHeight, 200, 1e-9);
}

TEST_F(WaterlinePicks, OnTheBelowSideAloneWaitForTheAboveOne)
{
    edit([](VideoCompositionConfig& config) {
        config.aboveOffset = 5;
        config.waterlineHeight = 250;
    });
    session->toggleBelowLock();
    pick(0.6);
    EXPECT_EQ(session->alignmentPointBelow(), 0.6);
    EXPECT_EQ(config().aboveOffset, 5);
    EXPECT_EQ(config().waterlineHeight, 250);
    session->toggleAboveLock();
    pick(0.4);
    EXPECT_NEAR(config().aboveOffset, 120, 1e-9);
    EXPECT_EQ(config().waterlineHeight, 250);
}

TEST_F(WaterlinePicks, MayBeCorrectedWhileThePickIsOpen)
{
    session->toggleAboveLock();
    pick(0.4);
    session->toggleBelowLock();
    pick(0.6);
    pick(0.7);
    EXPECT_NEAR(config().aboveOffset, 180, 1e-9);
    EXPECT_NEAR(config().waterlineHeight, 0.7 * 600 / 1.22, 1e-9);
    EXPECT_EQ(session->alignmentState(), AlignmentState::pickingBelow);
}

TEST_F(WaterlinePicks, OnTheAboveSideAnewMoveTheShiftAlone)
{
    session->toggleAboveLock();
    pick(0.4);
    session->toggleBelowLock();
    pick(0.6);
    const double waterline = config().waterlineHeight;
    session->setCurrentStep(kStep1);
    pick(0.5);
    EXPECT_NEAR(config().aboveOffset, 60, 1e-9);
    EXPECT_EQ(config().waterlineHeight, waterline);
}

TEST_F(WaterlinePicks, TakeEffectInALaterTurn)
{
    session->toggleAboveLock();
    session->onPickWaterline(0.4);
    EXPECT_EQ(session->alignmentPointAbove(), std::nullopt);
    advance(0.01);
    EXPECT_EQ(session->alignmentPointAbove(), 0.4);
}

TEST_F(WaterlinePicks, AreDroppedWhenThePickWasClosedMeanwhile)
{
    session->toggleAboveLock();
    session->onPickWaterline(0.4);
    session->setCurrentStep(kStep3);
    advance(0.01);
    EXPECT_EQ(session->alignmentPointAbove(), std::nullopt);
    pick(0.5);
    EXPECT_EQ(session->alignmentPointAbove(), std::nullopt);
    EXPECT_EQ(session->alignmentPointBelow(), std::nullopt);
}

TEST_F(WaterlinePicks, ShowThePointersHeightWhileTheyAreOpen)
{
    session->onHover(100);
    advance(0.01);
    EXPECT_EQ(session->hoverY(), std::nullopt);
    session->toggleAboveLock();
    session->onHover(100);
    EXPECT_EQ(session->hoverY(), std::nullopt);
    advance(0.01);
    EXPECT_EQ(session->hoverY(), 100);
    session->onHover(std::nullopt);
    advance(0.01);
    EXPECT_EQ(session->hoverY(), std::nullopt);
}

TEST_F(WaterlinePicks, TakeThePointersLineWithThemWhenTheyClose)
{
    session->toggleAboveLock();
    session->onHover(100);
    advance(0.01);
    session->toggleAboveLock();
    EXPECT_EQ(session->hoverY(), std::nullopt);
}

TEST_F(WaterlinePicks, MadeAnewBecomeTheBaseOnTheNextWayIntoStepThree)
{
    session->toggleAboveLock();
    pick(0.4);
    session->toggleBelowLock();
    pick(0.6);
    session->setCurrentStep(kStep3);
    session->setRelativeAboveOffset(7);
    EXPECT_NEAR(config().aboveOffset, 127, 1e-9);
    session->setCurrentStep(kStep1);
    pick(0.5);
    EXPECT_NEAR(session->relativeAboveOffset(), -60, 1e-9) << "the base is still the old one";
    session->setCurrentStep(kStep3);
    EXPECT_EQ(session->relativeAboveOffset(), 0);
    EXPECT_EQ(session->relativeWaterlineHeight(), 0);
}

TEST_F(WaterlinePicks, AreReadAndWrittenRelativeToTheirBase)
{
    edit([](VideoCompositionConfig& config) {
        config.waterlineHeight = 290;
        config.aboveOffset = 40;
        config.aboveHorizontalOffset = -12;
    });
    session->setCurrentStep(kStep3);
    session->setRelativeWaterlineHeight(-3);
    session->setRelativeAboveOffset(2.5);
    session->setRelativeAboveHorizontalOffset(1);
    EXPECT_EQ(config().waterlineHeight, 287);
    EXPECT_EQ(config().aboveOffset, 42.5);
    EXPECT_EQ(config().aboveHorizontalOffset, -11);
    EXPECT_EQ(session->relativeWaterlineHeight(), -3);
    EXPECT_EQ(session->relativeAboveOffset(), 2.5);
    EXPECT_EQ(session->relativeAboveHorizontalOffset(), 1);
}

struct AlignmentStates : SessionTest {
    AlignmentStates() { loadBoth(); }
};

TEST_F(AlignmentStates, AreClosedByReleasesAndClears)
{
    session->toggleAboveLock();
    session->toggleBelowLock();
    EXPECT_EQ(session->alignmentState(), AlignmentState::pickingBelow);
    session->toggleAboveLock();
    EXPECT_EQ(session->alignmentState(), AlignmentState::none);
    session->toggleAboveLock();
    EXPECT_EQ(session->alignmentState(), AlignmentState::pickingAbove);
    session->clearBelowVideo();
    EXPECT_EQ(session->alignmentState(), AlignmentState::none);
}

/// The frame that is shown at a time, by the rule of all players.
int64_t frameAt(double seconds, MediaTime frameDuration)
{
    int64_t frame = 0;
    while (frameHasBegun({(frame + 1) * frameDuration.value, frameDuration.timescale}, seconds))
        ++frame;
    return frame;
}

struct ShownFrame : SessionTest, testing::WithParamInterface<MediaTime> {
    ShownFrame() { loadBoth({.frameDuration = GetParam()}, {.frameDuration = GetParam()}); }
    int64_t shown() { return frameAt(above().currentTime().seconds(), GetParam()); }
};

TEST_P(ShownFrame, StaysTheLocksThroughLeavingAndReturning)
{
    for (const double playedFor : {0.3, 1.0 / 3, 0.7071, 1.0, 2.01, 0.0001}) {
        session->play();
        advance(playedFor);
        session->pause();
        const int64_t seen = shown();
        EXPECT_EQ(frameAt(session->currentTime(), GetParam()), seen);
        advance(0.2);
        session->toggleAboveLock();
        EXPECT_EQ(shown(), seen);
        EXPECT_EQ(frameAt(*session->manualSyncTimeAbove(), GetParam()), seen);
        session->setCurrentStep(kStep2);
        session->seek(3, true);
        advance(0.1);
        session->setCurrentStep(kStep3);
        session->seek(1, true);
        advance(0.1);
        session->setCurrentStep(kStep1);
        advance(0.1);
        EXPECT_EQ(shown(), seen) << playedFor;
        session->toggleAboveLock();
    }
}

TEST_P(ShownFrame, StaysTheLocksWhenItIsTakenWhilePlaying)
{
    session->seek(1.2345, true);
    session->play();
    advance(0.777);
    session->toggleAboveLock();
    const int64_t seen = shown();
    EXPECT_EQ(frameAt(*session->manualSyncTimeAbove(), GetParam()), seen);
    session->setCurrentStep(kStep2);
    session->setCurrentStep(kStep1);
    EXPECT_EQ(shown(), seen);
}

TEST_P(ShownFrame, StaysTheLocksAfterEveryNumberOfFrameSteps)
{
    for (int i = 1; i <= 300; ++i) {
        session->step(1);
        advance(0.001);
        ASSERT_EQ(shown(), i);
        session->toggleAboveLock();
        session->setCurrentStep(kStep2);
        session->setCurrentStep(kStep1);
        ASSERT_EQ(shown(), i) << "frame " << i;
        session->toggleAboveLock();
    }
}

INSTANTIATE_TEST_SUITE_P(AtEveryRate, ShownFrame,
                         testing::Values(MediaTime{1, 24}, MediaTime{1, 30}, MediaTime{1, 60}, MediaTime{1, 120},
                                         MediaTime{1001, 24000}, MediaTime{1001, 30000}, MediaTime{1001, 60000},
                                         MediaTime{1, 25}),
                         [](const auto& rate) {
                             return "FrameOf" + std::to_string(rate.param.value) + "Over" +
                                    std::to_string(rate.param.timescale);
                         });

}
}
