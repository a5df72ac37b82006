// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/SessionHarness.h"

namespace zumeta {
namespace {

using namespace test;
using testing::IsEmpty;
using testing::SizeIs;

constexpr double kReport = 1.0 / 60;

struct StepThreeLoop : SessionTest {
    StepThreeLoop() { enterComposite(WorkflowStep::step3, {60, 10}, {30, 4}); }
};

TEST_F(StepThreeLoop, BeginsAgainAtTheEnd)
{
    session->seek(29.5, true);
    session->play();
    advance(1);
    EXPECT_TRUE(session->isPlaying());
    EXPECT_NEAR(session->currentTime(), 0.55, 2 * kReport);
    EXPECT_NEAR(above().secondsNow() - 6, below().secondsNow(), 1e-6);
    EXPECT_EQ(above().seeks.back().target.seconds(), 6);
    EXPECT_EQ(below().seeks.back().target.seconds(), 0);
}

TEST_F(StepThreeLoop, WithoutItStopsWithinAReportOfTheEnd)
{
    session->setStep3LoopEnabled(false);
    session->seek(29.5, true);
    session->play();
    advance(1);
    EXPECT_FALSE(session->isPlaying());
    EXPECT_GE(session->currentTime(), 29.95);
    EXPECT_LE(session->currentTime(), 29.95 + 2 * kReport);
    EXPECT_EQ(above().rate(), 0);
    EXPECT_EQ(below().rate(), 0);
}

TEST_F(StepThreeLoop, RunsAtTheRateOfTheKeys)
{
    session->seek(20, true);
    session->adjustPlaybackRate(true);
    session->adjustPlaybackRate(true);
    session->adjustPlaybackRate(true);
    advance(3);
    EXPECT_EQ(above().rate(), 4);
    EXPECT_EQ(below().rate(), 4);
    EXPECT_NEAR(session->currentTime(), 2, 8 * kReport);
}

// At 32 times the normal rate half a second goes by between two reports: an end is passed before anyone can know.
TEST_F(StepThreeLoop, GivesBothSidesTheirRateAgainWhenOneWasStoppedByItsEnd)
{
    session->seek(25, true);
    for (int i = 0; i < 6; ++i)
        session->adjustPlaybackRate(true);
    int runsAtZero = 0;
    QObject::connect(&session->belowPlayerService(), &VideoPlayerService::timeReported,
                     [&] { runsAtZero += below().rate() == 0; });
    advance(10);
    EXPECT_GT(below().seeks.size(), 3u);
    EXPECT_EQ(above().rate(), 32);
    EXPECT_EQ(below().rate(), 32);
    EXPECT_EQ(runsAtZero, 0) << "the session has its turn before later observers";
    EXPECT_TRUE(session->isPlaying());
}

TEST_F(StepThreeLoop, AtTheBeginningBothSidesAreHeldTogether)
{
    session->seek(0.5, true);
    session->adjustPlaybackRate(false);
    advance(2);
    EXPECT_TRUE(session->isPlaying());
    EXPECT_EQ(session->currentTime(), 0);
    EXPECT_EQ(above().currentTime().seconds(), 6) << "it has more to show, but not of the composite";
    EXPECT_EQ(below().currentTime().seconds(), 0);
    EXPECT_EQ(above().rate(), 0);
}

TEST_F(StepThreeLoop, AUsersSeekInsideStartsBothSidesAgain)
{
    session->adjustPlaybackRate(false);
    advance(1);
    EXPECT_EQ(below().rate(), 0);
    session->seek(10, true);
    EXPECT_EQ(above().rate(), -1);
    EXPECT_EQ(below().rate(), -1);
    EXPECT_EQ(above().rateChanges.back().hostTime, below().rateChanges.back().hostTime);
    advance(1);
    EXPECT_NEAR(session->currentTime(), 9, kReport);
    EXPECT_NEAR(above().secondsNow() - 6, below().secondsNow(), 1e-6);
}

TEST_F(StepThreeLoop, ASeekToTheEndThatHoldsThemStartsNothing)
{
    session->adjustPlaybackRate(false);
    advance(1);
    session->seek(0, true);
    EXPECT_EQ(above().rate(), 0);
    EXPECT_EQ(below().rate(), 0);
}

TEST_F(StepThreeLoop, ASeekWhilePausedStartsNothing)
{
    session->adjustPlaybackRate(false);
    advance(1);
    session->pause();
    session->seek(10, true);
    EXPECT_EQ(above().rate(), 0);
    EXPECT_EQ(below().rate(), 0);
}

TEST_F(StepThreeLoop, TurningRoundAtTheBeginningKeepsTheSidesTogether)
{
    for (const double late : {0.001, 0.01, 0.05, 2.0}) {
        session->seek(0, true);
        session->adjustPlaybackRate(false);
        advance(late);
        session->adjustPlaybackRate(true);
        advance(3);
        EXPECT_NEAR(session->currentTime(), 3, kReport) << late;
        EXPECT_NEAR(above().secondsNow() - 6, below().secondsNow(), 1e-4) << late;
        session->pause();
    }
}

TEST_F(StepThreeLoop, PlayingAfterAStopAtTheBeginningKeepsTheSidesTogether)
{
    for (const double late : {0.001, 0.01, 0.05, 2.0}) {
        session->seek(0, true);
        session->adjustPlaybackRate(false);
        advance(late);
        session->pause();
        session->play();
        advance(3);
        EXPECT_NEAR(above().secondsNow() - 6, below().secondsNow(), 1e-4) << late;
        session->pause();
    }
}

// The end lies between two reports, and a key comes before the second.
TEST_F(StepThreeLoop, TurningRoundJustBehindTheBeginningKeepsTheSidesTogether)
{
    for (const double rate : {-1.0, -2.0, -32.0}) {
        session->seek(-rate * 0.01, true);
        advance(0.1);
        while (below().rate() != rate)
            session->adjustPlaybackRate(false);
        advance(0.013);
        ASSERT_EQ(below().rate(), 0);
        ASSERT_LT(above().secondsNow(), 6);
        session->adjustPlaybackRate(true);
        advance(3);
        EXPECT_NEAR(above().secondsNow() - 6, below().secondsNow(), 1e-4) << rate;
        session->pause();
    }
}

// Both beginnings lie between two reports.
TEST_F(StepThreeLoop, TurningRoundBehindBothBeginningsKeepsTheSidesTogether)
{
    edit([](VideoCompositionConfig& config) { config.timingOffset = -580; });
    session->rebuildPreviewForTimingChange();
    for (const double late : {0.0162, 0.2, 1.0}) {
        session->seek(0.3, true);
        advance(0.1);
        while (below().rate() != -32)
            session->adjustPlaybackRate(false);
        advance(late);
        ASSERT_EQ(above().rate(), 0);
        ASSERT_EQ(below().rate(), 0);
        session->adjustPlaybackRate(true);
        advance(3);
        EXPECT_NEAR(above().secondsNow() - 0.2, below().secondsNow(), 1e-4) << late;
        session->pause();
    }
}

struct ShorterProxies : SessionTest {
    ShorterProxies() { enterComposite(WorkflowStep::step3, {30, 0}, {30, 0}); }
    static MediaComposition shorter()
    {
        return MediaComposition(FakeVideo{.duration = 29.8}.asset(FileUrl("/proxies/short.mp4")));
    }
};

TEST_F(ShorterProxies, OfTheBelowVideoEndTheLoopAllTheSame)
{
    below().replaceCurrentItem(shorter(), ItemChange::keepsTime);
    session->seek(29, true);
    session->play();
    advance(2);
    EXPECT_NEAR(session->currentTime(), 1.2, 2 * kReport);
    EXPECT_NEAR(above().secondsNow(), below().secondsNow(), 1e-4);
}

TEST_F(ShorterProxies, OfTheAboveVideoLeaveTheLoopRunning)
{
    above().replaceCurrentItem(shorter(), ItemChange::keepsTime);
    session->seek(29, true);
    session->play();
    advance(2);
    EXPECT_NEAR(session->currentTime(), 1.05, 2 * kReport);
    EXPECT_NEAR(above().secondsNow(), below().secondsNow(), 1e-4);
}

TEST_F(ShorterProxies, OfTheBelowVideoEndTheRangeAllTheSame)
{
    below().replaceCurrentItem(shorter(), ItemChange::keepsTime);
    session->setCurrentStep(WorkflowStep::step4);
    session->seek(29, true);
    session->play();
    advance(2);
    EXPECT_FALSE(session->isPlaying());
    EXPECT_EQ(session->currentTime(), 30);
}

struct OneVideoRunsAlone : StepThreeLoop {
    OneVideoRunsAlone()
    {
        session->setCurrentStep(WorkflowStep::step2);
        session->toggleBelowLock();
        session->play();
        session->setCurrentStep(WorkflowStep::step3);
        advance(2);
    }
    void expectTogether(double rate)
    {
        EXPECT_EQ(above().rate(), rate);
        EXPECT_EQ(below().rate(), rate);
        EXPECT_NEAR(above().secondsNow() - below().secondsNow(), 10, 1e-4) << "the above lock alone is left";
    }
};

TEST_F(OneVideoRunsAlone, UntilARateKeyJoinsTheOther)
{
    EXPECT_EQ(above().rate(), 0);
    session->adjustPlaybackRate(true);
    advance(1);
    expectTogether(2);
}

TEST_F(OneVideoRunsAlone, UntilTheSlowSwitchJoinsTheOther)
{
    session->toggleStep3SlowPlayback();
    advance(1);
    expectTogether(0.5);
}

TEST_F(StepThreeLoop, TheShownTimeStaysInsideTheTimeline)
{
    session->seek(1, true);
    session->adjustPlaybackRate(false);
    advance(5);
    EXPECT_EQ(session->currentTime(), 0);
}

TEST_F(StepThreeLoop, ACollapsedTimelineShowsZero)
{
    session->seek(5, true);
    session->setStep3LoopEnabled(false);
    session->play();
    advance(1);
    edit([](VideoCompositionConfig& config) { config.timingOffset = -100000; });
    session->rebuildPreviewForTimingChange();
    advance(0.1);
    EXPECT_EQ(session->duration(), 0);
    EXPECT_EQ(session->currentTime(), 0);
}

struct StepFourRange : SessionTest {
    StepFourRange()
    {
        enterComposite(WorkflowStep::step4, {60, 10}, {30, 4});
        edit([](VideoCompositionConfig& config) {
            config.exportTrimStartSeconds = 5;
            config.exportTrimEndSeconds = 10;
        });
    }
};

TEST_F(StepFourRange, StopsAtItsEnd)
{
    session->seek(19.5, true);
    session->play();
    advance(1);
    EXPECT_FALSE(session->isPlaying());
    EXPECT_EQ(session->currentTime(), 20);
    EXPECT_EQ(above().currentTime().seconds(), 26);
    EXPECT_EQ(below().currentTime().seconds(), 20);
    EXPECT_EQ(below().seeks.back().tolerance, SeekTolerance::zero);
}

TEST_F(StepFourRange, PlayAtItsEndBeginsItAgain)
{
    session->seek(19.96, true);
    session->play();
    EXPECT_EQ(session->currentTime(), 5);
    EXPECT_EQ(above().secondsNow(), 11);
    EXPECT_EQ(below().secondsNow(), 5);
    advance(1);
    EXPECT_NEAR(session->currentTime(), 6, kReport);
}

TEST_F(StepFourRange, PlayALittleBeforeItsStartIsAccepted)
{
    session->seek(4.95, true);
    session->play();
    EXPECT_EQ(session->currentTime(), 4.95);
    advance(1);
    EXPECT_NEAR(session->currentTime(), 5.95, kReport);
}

TEST_F(StepFourRange, PlayFurtherBeforeItsStartJumpsThere)
{
    session->seek(4.89, true);
    session->play();
    EXPECT_EQ(session->currentTime(), 5);
}

TEST_F(StepFourRange, APlayheadBeforeItsStartJumpsToItAndGoesOn)
{
    session->seek(10, true);
    session->play();
    session->seek(2, true);
    advance(0.1);
    EXPECT_TRUE(session->isPlaying());
    EXPECT_TRUE(hasLogged(QStringLiteral("🔄 [Loop] Before Start: Jump to 5")));
    EXPECT_NEAR(session->currentTime(), 5.1, 2 * kReport);
    EXPECT_NEAR(above().secondsNow() - 6, below().secondsNow(), 1e-6);
}

TEST_F(StepFourRange, AfterAJumpToItsStartTheRulesRestForHalfASecond)
{
    session->seek(10, true);
    session->play();
    session->seek(2, true);
    advance(0.1);
    session->seek(2, true);
    advance(0.3);
    EXPECT_NEAR(session->currentTime(), 2.3, 2 * kReport) << "not yet";
    advance(0.2);
    EXPECT_GT(session->currentTime(), 5);
}

TEST_F(StepFourRange, AfterAStopAtItsEndTheRulesRestForATenthOfASecond)
{
    session->seek(19.5, true);
    session->play();
    advance(0.47);
    ASSERT_FALSE(session->isPlaying());
    session->play();
    session->seek(2, true);
    advance(0.05);
    EXPECT_LT(session->currentTime(), 3) << "not yet";
    advance(0.1);
    EXPECT_GT(session->currentTime(), 5);
}

TEST_F(StepFourRange, ThatIsEmptyStopsAtTheFirstReport)
{
    edit([](VideoCompositionConfig& config) {
        config.exportTrimStartSeconds = 12;
        config.exportTrimEndSeconds = 18;
    });
    session->play();
    EXPECT_TRUE(session->isPlaying());
    EXPECT_EQ(session->currentTime(), 12);
    advance(2 * kReport);
    EXPECT_FALSE(session->isPlaying());
    EXPECT_EQ(session->currentTime(), 12);
}

TEST_F(StepFourRange, DoesNotLoopWhateverStepThreeSays)
{
    session->setStep3LoopEnabled(true);
    session->seek(19.5, true);
    session->play();
    advance(5);
    EXPECT_EQ(session->currentTime(), 20);
}

TEST_F(StepFourRange, MayBeLeftWhilePaused)
{
    session->seek(2, true);
    advance(1);
    EXPECT_EQ(session->currentTime(), 2);
    session->seek(28, true);
    advance(1);
    EXPECT_EQ(session->currentTime(), 28);
}

// A report that was under way when the user sought back must not stop what now plays inside the range.
TEST_F(StepFourRange, AReportFromBeforeASeekStopsNothing)
{
    session->seek(19.9, true);
    session->play();
    advance(0.04);
    session->seek(8, true);
    advance(0.5);
    EXPECT_TRUE(session->isPlaying());
    EXPECT_NEAR(session->currentTime(), 8.5, 2 * kReport);
}

TEST_F(StepFourRange, IsNoneOfStepThree)
{
    session->setCurrentStep(WorkflowStep::step3);
    session->seek(19.5, true);
    session->play();
    advance(2);
    EXPECT_NEAR(session->currentTime(), 21.5, kReport);
}

}
}
