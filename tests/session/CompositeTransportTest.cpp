// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/SessionHarness.h"

namespace zumeta {
namespace {

using namespace test;
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

TEST_F(CompositeTransport, TheBelowSideThatIsOffByMoreThanEightHundredthsIsSoughtAtPlayToo)
{
    session->seek(5, true);
    below().seek(MediaTime::nearest(5.081, 60000), SeekTolerance::zero);
    advance(0.1);
    above().seeks.clear();
    below().seeks.clear();
    session->play();
    EXPECT_THAT(above().seeks, IsEmpty());
    ASSERT_THAT(below().seeks, SizeIs(1));
    EXPECT_EQ(below().seeks[0].target.seconds(), 5);
    EXPECT_EQ(below().seeks[0].tolerance, SeekTolerance::zero);
}

TEST_F(CompositeTransport, WithoutLocksTheStoredStartsTellWhereTheSidesMeet)
{
    session->toggleAboveLock();
    session->toggleBelowLock();
    edit([](VideoCompositionConfig& config) {
        config.aboveStartTime = 4;
        config.belowStartTime = 9;
    });
    session->setCurrentStep(WorkflowStep::step3);
    session->seek(2, true);
    EXPECT_EQ(session->duration(), 25);
    EXPECT_EQ(above().seeks.back().target.seconds(), 2);
    EXPECT_EQ(below().seeks.back().target.seconds(), 7);
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

struct FineFrames : SessionTest {};

TEST_F(FineFrames, AStepOfTheCompositeIsAThirtiethOfASecondAllTheSame)
{
    loadBoth({.frameDuration = {1, 60}}, {.frameDuration = {1, 60}});
    session->setCurrentStep(WorkflowStep::step3);
    session->step(1);
    EXPECT_DOUBLE_EQ(session->currentTime(), 1.0 / 30);
    EXPECT_EQ(below().seeks.back().target, (MediaTime{2000, 60000}));
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

TEST_F(CompositeTransport, TheSlowSwitchLeavesTheRateOfTheKeysInStepFour)
{
    session->setCurrentStep(WorkflowStep::step4);
    session->play();
    session->adjustPlaybackRate(true);
    session->toggleStep3SlowPlayback();
    EXPECT_EQ(above().rate(), 2);
    EXPECT_EQ(below().rate(), 2);
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

TEST_F(CompositeTransport, ZoomAndBlendMoveNothingInTime)
{
    session->setAboveZoom(7);
    session->setBlendAmount(30);
    EXPECT_EQ(session->projectConfig().aboveZoom, 7);
    EXPECT_EQ(session->projectConfig().blendAmount, 30);
    EXPECT_THAT(above().seeks, IsEmpty());
    EXPECT_THAT(below().seeks, IsEmpty());
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
