// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/SessionHarness.h"

namespace zumeta {
namespace {

using namespace test;
using testing::DoubleNear;
using testing::IsEmpty;
using testing::SizeIs;

constexpr double kReport = 1.0 / 60;

std::vector<double> rates(const VirtualPlayer& player)
{
    std::vector<double> result;
    for (const VirtualPlayer::RateChange& change : player.rateChanges)
        result.push_back(change.rate);
    return result;
}

struct SideTransport : SessionTest {
    SideTransport()
    {
        loadBoth({.duration = 60, .frameDuration = {1001, 30000}}, {.duration = 30, .frameDuration = {1, 60}});
    }
};

TEST_F(SideTransport, PlaysTheVideoOfTheStep)
{
    session->play();
    EXPECT_TRUE(session->isPlaying());
    EXPECT_EQ(above().rate(), 1);
    EXPECT_TRUE(session->abovePlayerService().isPlaying());
    EXPECT_EQ(below().rate(), 0);
    EXPECT_FALSE(session->belowPlayerService().isPlaying());
    session->pause();
    session->setCurrentStep(WorkflowStep::step2);
    session->play();
    EXPECT_EQ(above().rate(), 0);
    EXPECT_EQ(below().rate(), 1);
}

TEST_F(SideTransport, ThePlayheadFollowsTheVideoOfTheStep)
{
    session->seek(3.37, true);
    session->play();
    advance(2);
    EXPECT_NEAR(session->currentTime(), 5.37, kReport);
    session->pause();
    session->setCurrentStep(WorkflowStep::step2);
    session->play();
    advance(1.23);
    EXPECT_NEAR(session->currentTime(), 1.23, kReport);
}

TEST_F(SideTransport, PlayingWithoutAVideoIsAnIntentionAlone)
{
    session->clearAboveVideo();
    session->play();
    EXPECT_TRUE(session->isPlaying());
    EXPECT_EQ(above().rate(), 0);
    EXPECT_FALSE(session->abovePlayerService().isPlaying());
}

TEST_F(SideTransport, PausingStopsBothSidesInEveryStep)
{
    session->play();
    session->setCurrentStep(WorkflowStep::step2);
    session->play();
    advance(1);
    session->pause();
    EXPECT_FALSE(session->isPlaying());
    EXPECT_EQ(above().rate(), 0);
    EXPECT_EQ(below().rate(), 0);
    EXPECT_FALSE(session->abovePlayerService().isPlaying());
    EXPECT_FALSE(session->belowPlayerService().isPlaying());
}

TEST_F(SideTransport, StandsWhereThePlayheadShowsItWhenItIsPaused)
{
    session->play();
    advance(1.2345);
    session->pause();
    EXPECT_EQ(above().currentTime().seconds(), session->currentTime());
    advance(1);
    EXPECT_EQ(above().currentTime().seconds(), session->currentTime());
}

TEST_F(SideTransport, ReportsWhilePausedAreIgnored)
{
    session->seek(5, true);
    above().seek({20, 1}, SeekTolerance::zero);
    advance(1);
    EXPECT_EQ(session->currentTime(), 5);
    EXPECT_EQ(session->abovePlayerService().currentTime(), 20);
}

TEST_F(SideTransport, TheOtherVideosReportsDoNotMoveThePlayhead)
{
    session->seek(20, true);
    session->play();
    session->setCurrentStep(WorkflowStep::step2);
    session->play();
    advance(1);
    EXPECT_NEAR(session->currentTime(), 1, kReport);
    session->setCurrentStep(WorkflowStep::step1);
    advance(1);
    EXPECT_NEAR(session->currentTime(), 22, kReport);
}

TEST_F(SideTransport, TheIntentionStaysWhenTheVideoEnds)
{
    session->seek(59.5, true);
    session->play();
    advance(2);
    EXPECT_EQ(session->currentTime(), 60);
    EXPECT_TRUE(session->isPlaying());
    EXPECT_EQ(above().rate(), 0);
    session->seek(10, true);
    advance(1);
    EXPECT_EQ(session->currentTime(), 10) << "nothing starts it again in this step";
}

TEST_F(SideTransport, ALockedSideDoesNotPlayStepNorChangeItsRate)
{
    session->seek(5, true);
    session->toggleAboveLock();
    advance(0.1);
    above().seeks.clear();
    above().rateChanges.clear();
    session->play();
    session->togglePlayback();
    session->togglePlayPause();
    session->adjustPlaybackRate(true);
    session->adjustPlaybackRate(false);
    EXPECT_THAT(above().rateChanges, IsEmpty());
    session->step(1);
    advance(0.1);
    EXPECT_THAT(above().seeks, IsEmpty());
    EXPECT_FALSE(session->isPlaying());
    EXPECT_EQ(session->currentTime(), 5);
}

TEST_F(SideTransport, ALockedStepTwoStandsAsWell)
{
    session->setCurrentStep(WorkflowStep::step2);
    session->seek(5, true);
    session->toggleBelowLock();
    session->play();
    session->adjustPlaybackRate(true);
    EXPECT_FALSE(session->isPlaying());
    EXPECT_EQ(below().rate(), 0);
}

TEST_F(SideTransport, TheOtherSidesLockDoesNotMatter)
{
    session->toggleAboveLock();
    session->setCurrentStep(WorkflowStep::step2);
    session->play();
    EXPECT_EQ(below().rate(), 1);
}

TEST_F(SideTransport, ARunningPlayerOfALockedStepStopsThroughPauseAlone)
{
    session->seek(5, true);
    session->toggleAboveLock();
    session->setCurrentStep(WorkflowStep::step2);
    session->play();
    session->setCurrentStep(WorkflowStep::step1);
    session->togglePlayPause();
    EXPECT_TRUE(session->isPlaying());
    session->togglePlayback();
    EXPECT_FALSE(session->isPlaying());
}

TEST_F(SideTransport, TogglingStartsAndStops)
{
    session->togglePlayback();
    EXPECT_TRUE(session->isPlaying());
    session->togglePlayback();
    EXPECT_FALSE(session->isPlaying());
    session->togglePlayPause();
    EXPECT_TRUE(session->isPlaying());
    session->togglePlayPause();
    EXPECT_FALSE(session->isPlaying());
}

TEST_F(SideTransport, SeeksAreHeldInsideTheTimeline)
{
    session->seek(-1, true);
    EXPECT_EQ(session->currentTime(), 0);
    session->seek(1000, true);
    EXPECT_EQ(session->currentTime(), 60);
    EXPECT_EQ(above().seeks.back().target.seconds(), 60);
}

TEST_F(SideTransport, SeeksGoToTheNearestSixtyThousandth)
{
    session->seek(7.123456789, true);
    EXPECT_EQ(above().seeks.back().target, (MediaTime{427407, 60000}));
    EXPECT_EQ(above().seeks.back().tolerance, SeekTolerance::zero);
    session->seek(7, false);
    EXPECT_EQ(above().seeks.back().tolerance, SeekTolerance::infinite);
    session->setCurrentStep(WorkflowStep::step2);
    session->seek(8, true);
    EXPECT_EQ(below().seeks.back().target.seconds(), 8);
    EXPECT_EQ(above().seeks.back().target.seconds(), 7);
}

TEST_F(SideTransport, ASeekWithoutALengthDoesItsWholeWork)
{
    session->clearAboveVideo();
    above().seeks.clear();
    session->seek(5, true);
    EXPECT_EQ(session->currentTime(), 0);
    ASSERT_THAT(above().seeks, SizeIs(1));
    EXPECT_EQ(above().currentTime(), MediaTime{});
}

TEST_F(SideTransport, AStepIsOneFrameOfTheVideo)
{
    session->seek(2.002, true);
    session->step(1);
    EXPECT_EQ(above().seeks.back().target, (MediaTime{61 * 1001, 30000}));
    EXPECT_EQ(above().seeks.back().tolerance, SeekTolerance::zero);
    EXPECT_EQ(session->currentTime(), 2.002) << "read back in a later turn";
    advance(0.01);
    EXPECT_DOUBLE_EQ(session->currentTime(), 61 * 1001 / 30000.0);
}

TEST_F(SideTransport, AHundredStepsLandWhereOneJumpDoes)
{
    for (int i = 0; i < 100; ++i) {
        session->step(1);
        advance(0.01);
    }
    EXPECT_EQ(above().currentTime(), (MediaTime{100 * 1001, 30000}));
    session->step(-100);
    advance(0.01);
    EXPECT_EQ(session->currentTime(), 0);
}

TEST_F(SideTransport, AStepStopsPlaying)
{
    session->play();
    advance(1);
    session->step(-1);
    advance(0.1);
    EXPECT_FALSE(session->isPlaying());
    EXPECT_EQ(above().rate(), 0);
    EXPECT_EQ(session->currentTime(), above().currentTime().seconds());
}

TEST_F(SideTransport, AStepWithoutAVideoReadsTheTimeBackAllTheSame)
{
    session->clearAboveVideo();
    above().seeks.clear();
    session->step(1);
    advance(0.1);
    EXPECT_THAT(above().seeks, IsEmpty());
    EXPECT_EQ(session->currentTime(), 0);
}

TEST_F(SideTransport, TheTimeOfAStepIsReadInTheStepOfItsTurn)
{
    session->setCurrentStep(WorkflowStep::step2);
    session->step(30);
    session->setCurrentStep(WorkflowStep::step3);
    session->seek(9, true);
    advance(0.1);
    EXPECT_EQ(session->currentTime(), 9);
}

TEST_F(SideTransport, RateKeysRunThroughThePowersOfTwo)
{
    session->seek(30, true);
    for (const double rate : {1.0, 2.0, 4.0, 8.0, 16.0, 32.0, 32.0}) {
        session->adjustPlaybackRate(true);
        EXPECT_EQ(above().rate(), rate);
        EXPECT_TRUE(session->isPlaying());
        EXPECT_TRUE(session->abovePlayerService().isPlaying());
    }
    for (const double rate : {-1.0, -2.0, -4.0}) {
        session->adjustPlaybackRate(false);
        EXPECT_EQ(above().rate(), rate);
    }
    session->adjustPlaybackRate(true);
    EXPECT_EQ(above().rate(), 1);
    EXPECT_EQ(below().rate(), 0);
}

TEST_F(SideTransport, PlayGoesBackToTheNormalRate)
{
    session->seek(30, true);
    session->adjustPlaybackRate(false);
    session->pause();
    session->play();
    EXPECT_EQ(above().rate(), 1);
}

TEST_F(SideTransport, TheTimingOffsetSeeksTheStepsVideo)
{
    session->seek(5, true);
    below().seeks.clear();
    session->setTimingOffset(20);
    EXPECT_EQ(session->projectConfig().timingOffset, 20);
    EXPECT_EQ(above().seeks.back().target.seconds(), 5);
    EXPECT_THAT(below().seeks, IsEmpty());
}

struct CompositeTransport : SessionTest {
    CompositeTransport() { enterComposite(WorkflowStep::step3, {60, 10}, {30, 4}); }
};

TEST_F(CompositeTransport, SeeksBothSidesToOneInstantOfTheSwim)
{
    session->seek(7.5, true);
    EXPECT_EQ(above().seeks.back().target.seconds(), 13.5);
    EXPECT_EQ(below().seeks.back().target.seconds(), 7.5);
    EXPECT_EQ(above().seeks.back().hostTime, below().seeks.back().hostTime);
    session->seek(0, false);
    EXPECT_EQ(above().seeks.back().tolerance, SeekTolerance::infinite);
    EXPECT_EQ(below().seeks.back().tolerance, SeekTolerance::infinite);
}

TEST_F(CompositeTransport, StartsBothSidesAtOneInstantAndRate)
{
    session->play();
    ASSERT_THAT(above().rateChanges, SizeIs(1));
    ASSERT_THAT(below().rateChanges, SizeIs(1));
    EXPECT_EQ(above().rateChanges[0].hostTime, below().rateChanges[0].hostTime);
    EXPECT_EQ(above().rate(), 1);
    EXPECT_EQ(below().rate(), 1);
    EXPECT_TRUE(session->abovePlayerService().isPlaying());
    EXPECT_TRUE(session->belowPlayerService().isPlaying());
}

TEST_F(CompositeTransport, TheBelowPlayerIsTheClock)
{
    session->play();
    advance(3.3);
    EXPECT_NEAR(session->currentTime(), 3.3, kReport);
    EXPECT_NEAR(session->currentTime(), session->belowPlayerService().currentTime(), 1e-9);
}

TEST_F(CompositeTransport, SidesThatStandWhereTheyShouldAreNotSoughtAtPlay)
{
    session->seek(5, true);
    advance(0.1);
    above().seeks.clear();
    below().seeks.clear();
    session->play();
    EXPECT_THAT(above().seeks, IsEmpty());
    EXPECT_THAT(below().seeks, IsEmpty());
}

TEST_F(CompositeTransport, ASideThatIsOffByMoreThanEightHundredthsIsSoughtAtPlay)
{
    session->seek(5, true);
    for (const auto& [off, isSought] : {std::pair(0.079, false), {0.081, true}}) {
        above().seek(MediaTime::nearest(11 + off, 60000), SeekTolerance::zero);
        below().seek(MediaTime::nearest(5, 60000), SeekTolerance::zero);
        advance(0.1);
        above().seeks.clear();
        below().seeks.clear();
        session->play();
        session->pause();
        EXPECT_THAT(above().seeks, SizeIs(isSought ? 1 : 0)) << off;
        EXPECT_THAT(below().seeks, IsEmpty());
    }
}

TEST_F(CompositeTransport, AnEmptyTimelineTurnsPlayingOffAtOnce)
{
    session->clearAboveVideo();
    advance(0.1);
    below().rateChanges.clear();
    session->play();
    EXPECT_FALSE(session->isPlaying());
    EXPECT_EQ(session->duration(), 0);
    EXPECT_THAT(rates(below()), testing::Each(0));
}

TEST_F(CompositeTransport, VideosThatDoNotOverlapDoNotPlay)
{
    session->setTimingOffset(-10000);
    EXPECT_EQ(session->duration(), 0);
    session->play();
    EXPECT_FALSE(session->isPlaying());
}

TEST_F(CompositeTransport, AStepIsAThirtiethOfASecond)
{
    session->seek(5, true);
    session->step(1);
    EXPECT_DOUBLE_EQ(session->currentTime(), 5 + 1.0 / 30);
    session->step(-3);
    EXPECT_DOUBLE_EQ(session->currentTime(), 5 - 2.0 / 30);
    EXPECT_EQ(above().seeks.back().tolerance, SeekTolerance::zero);
    EXPECT_EQ(below().seeks.back().tolerance, SeekTolerance::zero);
}

TEST_F(CompositeTransport, StepsAreHeldInsideTheTimeline)
{
    session->step(-5);
    EXPECT_EQ(session->currentTime(), 0);
    session->step(100000);
    EXPECT_EQ(session->currentTime(), 30);
}

TEST_F(CompositeTransport, SlowPlaybackHalvesBothSidesWhileTheyPlay)
{
    session->play();
    advance(1);
    session->toggleStep3SlowPlayback();
    EXPECT_EQ(above().rate(), 0.5);
    EXPECT_EQ(below().rate(), 0.5);
    EXPECT_EQ(above().rateChanges.back().hostTime, below().rateChanges.back().hostTime);
    advance(2);
    EXPECT_NEAR(session->currentTime(), 2, kReport);
    session->toggleStep3SlowPlayback();
    EXPECT_EQ(above().rate(), 1);
}

TEST_F(CompositeTransport, SlowPlaybackWaitsForPlay)
{
    session->toggleStep3SlowPlayback();
    EXPECT_THAT(above().rateChanges, IsEmpty());
    session->play();
    EXPECT_EQ(above().rate(), 0.5);
}

TEST_F(CompositeTransport, StepFourRunsAtTheNormalRate)
{
    session->toggleStep3SlowPlayback();
    session->setCurrentStep(WorkflowStep::step4);
    session->play();
    EXPECT_EQ(above().rate(), 1);
    session->toggleStep3SlowPlayback();
    EXPECT_EQ(above().rate(), 1);
}

TEST_F(CompositeTransport, RateKeysDriveBothSidesFromTheBelowOnesRate)
{
    session->seek(20, true);
    session->adjustPlaybackRate(false);
    session->adjustPlaybackRate(false);
    EXPECT_EQ(above().rate(), -2);
    EXPECT_EQ(below().rate(), -2);
    advance(2);
    EXPECT_NEAR(session->currentTime(), 16, 2 * kReport);
    session->adjustPlaybackRate(true);
    EXPECT_EQ(above().rate(), 1);
    EXPECT_EQ(below().rate(), 1);
}

TEST_F(CompositeTransport, RateKeysSeekNothing)
{
    session->seek(20, true);
    session->play();
    advance(1);
    above().seeks.clear();
    below().seeks.clear();
    for (const bool faster : {true, true, false, false, true})
        session->adjustPlaybackRate(faster);
    EXPECT_THAT(above().seeks, IsEmpty());
    EXPECT_THAT(below().seeks, IsEmpty());
}

TEST_F(CompositeTransport, ARateOfTheKeysDoublesSlowPlaybackToo)
{
    session->toggleStep3SlowPlayback();
    session->play();
    session->adjustPlaybackRate(true);
    EXPECT_EQ(below().rate(), 1);
    session->pause();
    session->play();
    EXPECT_EQ(below().rate(), 0.5);
}

TEST_F(CompositeTransport, TheTimingOffsetMovesTheAboveVideo)
{
    session->seek(10, true);
    session->setTimingOffset(150);
    EXPECT_EQ(session->currentTime(), 10);
    EXPECT_DOUBLE_EQ(above().currentTime().seconds(), 17.5);
    EXPECT_DOUBLE_EQ(below().currentTime().seconds(), 10);
}

TEST_F(CompositeTransport, RebuildingIsForTheLaterStepsAlone)
{
    session->setCurrentStep(WorkflowStep::step1);
    above().seeks.clear();
    session->rebuildPreviewForTimingChange();
    EXPECT_THAT(above().seeks, IsEmpty());
}

TEST_F(CompositeTransport, PlayAndStepsCountAsTakingPartInTheGuide)
{
    session->play();
    session->seek(3, true);
    EXPECT_FALSE(session->hasInteractedWithStep3Adjustments());
    session->togglePlayback();
    EXPECT_FALSE(session->hasInteractedWithStep3Adjustments());
    session->togglePlayPause();
    EXPECT_TRUE(session->hasInteractedWithStep3Adjustments());
    session->setCurrentStep(WorkflowStep::step3);
    session->step(1);
    EXPECT_TRUE(session->hasInteractedWithStep3Adjustments());
}

TEST_F(CompositeTransport, TheGuidesMarkIsForStepThreeAlone)
{
    session->setCurrentStep(WorkflowStep::step4);
    session->togglePlayPause();
    EXPECT_FALSE(session->hasInteractedWithStep3Adjustments());
}

TEST_F(CompositeTransport, ADragOfTheTimelineDoesNotHoldReportsBack)
{
    session->setTimelineSliderDragging(true);
    session->play();
    advance(1);
    EXPECT_NEAR(session->currentTime(), 1, kReport);
}

TEST_F(CompositeTransport, APauseLeavesBothSidesAtOneInstant)
{
    session->play();
    advance(4.567);
    session->pause();
    EXPECT_NEAR(above().currentTime().seconds() - 6, below().currentTime().seconds(), 1e-9);
    EXPECT_NEAR(session->currentTime(), below().currentTime().seconds(), 1e-9);
}

}
}
