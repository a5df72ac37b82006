// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/SessionHarness.h"

namespace zumeta {
namespace {

using namespace test;
using testing::IsEmpty;
using testing::SizeIs;

constexpr double kReport = 1.0 / 60;

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

TEST_F(SideTransport, AStepInALockedStepStopsWhatRunsAndMovesNothing)
{
    session->seek(5, true);
    session->toggleAboveLock();
    session->setCurrentStep(WorkflowStep::step2);
    session->play();
    session->setCurrentStep(WorkflowStep::step1);
    above().seeks.clear();
    session->step(1);
    advance(0.1);
    EXPECT_FALSE(session->isPlaying());
    EXPECT_EQ(below().rate(), 0);
    EXPECT_EQ(session->currentTime(), 5);
    EXPECT_THAT(above().seeks, IsEmpty());
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
    above().seeks.clear();
    below().seeks.clear();
    session->setTimingOffset(20);
    EXPECT_EQ(session->projectConfig().timingOffset, 20);
    ASSERT_THAT(above().seeks, SizeIs(1));
    EXPECT_EQ(above().seeks[0].target.seconds(), 5);
    EXPECT_EQ(above().seeks[0].tolerance, SeekTolerance::zero);
    EXPECT_THAT(below().seeks, IsEmpty());
}

}
}
