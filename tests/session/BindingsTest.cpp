// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/SessionHarness.h"

namespace zumeta {
namespace {

using namespace test;

struct Bindings : SessionTest {
    Bindings() { loadBoth(); }
    static QVariantMap info(const char* key, const QVariant& value) { return {{QLatin1String(key), value}}; }
};

TEST_F(Bindings, StepFramesStepsByTheNumberThatItCarries)
{
    post(notifications::kStepFrames, info("frames", 3));
    EXPECT_DOUBLE_EQ(session->currentTime(), 0.1);
    post(notifications::kStepFrames, info("frames", -1));
    EXPECT_DOUBLE_EQ(session->currentTime(), 2.0 / 30);
}

TEST_F(Bindings, StepFramesWithoutANumberDoesNothing)
{
    session->play();
    post(notifications::kStepFrames);
    post(notifications::kStepFrames, info("frames", QStringLiteral("3")));
    post(notifications::kStepFrames, info("count", 3));
    EXPECT_TRUE(session->isPlaying());
}

TEST_F(Bindings, MarkSyncPointLocksTheSideOfTheStep)
{
    post(notifications::kMarkSyncPoint);
    EXPECT_TRUE(session->manualSyncTimeAbove());
    EXPECT_FALSE(session->manualSyncTimeBelow());
    post(notifications::kMarkSyncPoint);
    EXPECT_FALSE(session->manualSyncTimeAbove());
    session->setCurrentStep(WorkflowStep::step2);
    post(notifications::kMarkSyncPoint);
    EXPECT_TRUE(session->manualSyncTimeBelow());
}

TEST_F(Bindings, MarkSyncPointLocksNothingInTheLaterSteps)
{
    for (const WorkflowStep step : {WorkflowStep::step3, WorkflowStep::step4}) {
        session->setCurrentStep(step);
        post(notifications::kMarkSyncPoint);
        EXPECT_FALSE(session->manualSyncTimeAbove());
        EXPECT_FALSE(session->manualSyncTimeBelow());
    }
}

TEST_F(Bindings, TheShortcutsPlayAndPause)
{
    post(notifications::kTogglePlaybackShortcut);
    EXPECT_TRUE(session->isPlaying());
    post(notifications::kTogglePlaybackShortcut);
    EXPECT_FALSE(session->isPlaying());
    session->play();
    post(notifications::kPausePlaybackShortcut);
    EXPECT_FALSE(session->isPlaying());
    post(notifications::kPausePlaybackShortcut);
    EXPECT_FALSE(session->isPlaying());
}

TEST_F(Bindings, TheShortcutOfPlayingCountsAsTakingPartInTheGuide)
{
    session->setCurrentStep(WorkflowStep::step3);
    post(notifications::kTogglePlaybackShortcut);
    EXPECT_TRUE(session->hasInteractedWithStep3Adjustments());
}

TEST_F(Bindings, TheRateShortcutGoesTheWayThatItCarriesAndFasterWithoutOne)
{
    session->seek(30, true);
    post(notifications::kAdjustPlaybackRateShortcut, info("faster", false));
    EXPECT_EQ(above().rate(), -1);
    post(notifications::kAdjustPlaybackRateShortcut, info("faster", true));
    EXPECT_EQ(above().rate(), 1);
    post(notifications::kAdjustPlaybackRateShortcut);
    EXPECT_EQ(above().rate(), 2);
    post(notifications::kAdjustPlaybackRateShortcut, info("faster", 0));
    EXPECT_EQ(above().rate(), 4);
}

TEST_F(Bindings, NotificationsTakeEffectInALaterTurn)
{
    notifications.post(notifications::kTogglePlaybackShortcut);
    EXPECT_FALSE(session->isPlaying());
    advance(0);
    EXPECT_TRUE(session->isPlaying());
}

TEST_F(Bindings, ANewLengthOfAPlayerIsTheTimelinesInALaterTurn)
{
    session->abovePlayerService().reset();
    EXPECT_EQ(session->duration(), 60);
    advance(0);
    EXPECT_EQ(session->duration(), 0);
}

TEST_F(Bindings, ANewLengthOfTheBelowPlayerIsTheTimelinesToo)
{
    session->setCurrentStep(WorkflowStep::step2);
    session->belowPlayerService().reset();
    EXPECT_EQ(session->duration(), 60);
    advance(0);
    EXPECT_EQ(session->duration(), 0);
}

TEST_F(Bindings, EndWithTheSession)
{
    notifications.post(notifications::kTogglePlaybackShortcut);
    session.reset();
    advance(1);
    notifications.post(notifications::kTogglePlaybackShortcut);
    advance(1);
    EXPECT_EQ(session, nullptr);
}

}
}
