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

struct StepChange : SessionTest {
    void setTrims(double start, double end)
    {
        edit([=](VideoCompositionConfig& config) {
            config.exportTrimStartSeconds = start;
            config.exportTrimEndSeconds = end;
        });
    }
    void expectTrims(double start, double end)
    {
        EXPECT_EQ(session->projectConfig().exportTrimStartSeconds, start);
        EXPECT_EQ(session->projectConfig().exportTrimEndSeconds, end);
    }
    void forgetSeeks()
    {
        above().seeks.clear();
        below().seeks.clear();
    }
};

TEST_F(StepChange, RemembersTheFurthestStep)
{
    session->setCurrentStep(kStep3);
    session->setCurrentStep(kStep2);
    EXPECT_EQ(session->maxReachedStep(), kStep3);
}

TEST_F(StepChange, ForgetsThatTheTimelineWasMoved)
{
    for (const WorkflowStep step : {kStep1, kStep2, kStep3, kStep4}) {
        session->setHasSliderBeenMoved(true);
        session->setCurrentStep(step);
        EXPECT_FALSE(session->hasSliderBeenMoved());
    }
}

TEST_F(StepChange, ClearsWhatTheGuideKnowsOfTheNewStepAlone)
{
    session->setHasInteractedWithStep3Adjustments(true);
    session->setHasInteractedWithStep4ExportControls(true);
    session->setCurrentStep(kStep2);
    EXPECT_TRUE(session->hasInteractedWithStep3Adjustments());
    session->setCurrentStep(kStep3);
    EXPECT_FALSE(session->hasInteractedWithStep3Adjustments());
    EXPECT_TRUE(session->hasInteractedWithStep4ExportControls());
    session->setHasInteractedWithStep3Adjustments(true);
    session->setCurrentStep(kStep4);
    EXPECT_TRUE(session->hasInteractedWithStep3Adjustments());
    EXPECT_FALSE(session->hasInteractedWithStep4ExportControls());
}

TEST_F(StepChange, LeavesFullScreenInTheFirstTwoSteps)
{
    for (const auto& [step, stays] : {std::pair(kStep1, false), {kStep2, false}, {kStep3, true}, {kStep4, true}}) {
        session->setFullScreen(true);
        session->setCurrentStep(step);
        EXPECT_EQ(session->isFullScreen(), stays) << int(step);
    }
}

TEST_F(StepChange, ShowsWhatTheStepWorksOn)
{
    for (const auto& [step, mode] : {std::pair(kStep1, ViewMode::aboveOnly),
                                     {kStep2, ViewMode::belowOnly},
                                     {kStep3, ViewMode::split},
                                     {kStep4, ViewMode::split}}) {
        session->setCurrentStep(step);
        EXPECT_EQ(session->viewMode(), mode) << int(step);
    }
}

TEST_F(StepChange, TakesTheLengthOfTheStepsTimeline)
{
    loadBoth({.duration = 60}, {.duration = 30});
    lockBoth(10, 4);
    session->setCurrentStep(kStep1);
    EXPECT_EQ(session->duration(), 60);
    session->setCurrentStep(kStep2);
    EXPECT_EQ(session->duration(), 30);
    session->setCurrentStep(kStep3);
    EXPECT_EQ(session->duration(), 30);
    edit([](VideoCompositionConfig& config) { config.timingOffset = 100; });
    session->setCurrentStep(kStep4);
    EXPECT_EQ(session->duration(), 30);
    session->toggleBelowLock();
    session->setCurrentStep(kStep4);
    EXPECT_EQ(session->duration(), 30);
}

TEST_F(StepChange, ComesBackToTheLockOfTheAboveVideo)
{
    loadBoth();
    lockBoth(10.25, 4);
    forgetSeeks();
    session->setCurrentStep(kStep1);
    EXPECT_EQ(session->currentTime(), 10.25);
    ASSERT_THAT(above().seeks, SizeIs(1));
    EXPECT_EQ(above().seeks[0].target, (MediaTime{615000, 60000}));
    EXPECT_EQ(above().seeks[0].tolerance, SeekTolerance::zero);
    EXPECT_THAT(below().seeks, IsEmpty());
}

TEST_F(StepChange, ToAnUnlockedStepOneMovesNothing)
{
    loadBoth();
    session->setCurrentStep(kStep2);
    session->seek(7, true);
    forgetSeeks();
    session->setCurrentStep(kStep1);
    EXPECT_EQ(session->currentTime(), 7);
    EXPECT_THAT(above().seeks, IsEmpty());
}

TEST_F(StepChange, ToAnUnlockedSideLeavesThePlayheadEvenBeyondItsEnd)
{
    loadBoth({.duration = 30}, {.duration = 60});
    session->setCurrentStep(kStep2);
    session->seek(50, true);
    session->setCurrentStep(kStep1);
    EXPECT_EQ(session->duration(), 30);
    EXPECT_EQ(session->currentTime(), 50);
}

TEST_F(StepChange, ComesBackToTheLockOfTheBelowVideo)
{
    loadBoth();
    lockBoth(10, 4.5);
    for (const WorkflowStep from : {kStep1, kStep2, kStep3, kStep4}) {
        session->setCurrentStep(from);
        forgetSeeks();
        session->setCurrentStep(kStep2);
        EXPECT_EQ(session->currentTime(), 4.5);
        ASSERT_THAT(below().seeks, SizeIs(1));
        EXPECT_EQ(below().seeks[0].target, (MediaTime{270000, 60000}));
        EXPECT_EQ(below().seeks[0].tolerance, SeekTolerance::zero);
    }
}

TEST_F(StepChange, FromStepOneToAnUnlockedStepTwoBeginsAtItsBeginning)
{
    loadBoth();
    session->seek(12, true);
    forgetSeeks();
    session->setCurrentStep(kStep2);
    EXPECT_EQ(session->currentTime(), 0);
    ASSERT_THAT(below().seeks, SizeIs(1));
    EXPECT_EQ(below().seeks[0].target, MediaTime{});
    EXPECT_EQ(below().seeks[0].tolerance, SeekTolerance::infinite);
    EXPECT_THAT(above().seeks, IsEmpty());
}

TEST_F(StepChange, FromAnotherStepToAnUnlockedStepTwoMovesNothing)
{
    loadBoth();
    for (const WorkflowStep from : {kStep2, kStep3, kStep4}) {
        session->setCurrentStep(from);
        session->seek(12, true);
        forgetSeeks();
        session->setCurrentStep(kStep2);
        EXPECT_EQ(session->currentTime(), 12) << int(from);
        EXPECT_THAT(below().seeks, IsEmpty());
    }
}

TEST_F(StepChange, OpensThePickOfAPointThatWasPickedBefore)
{
    loadBoth();
    lockBoth(10, 4);
    session->setCurrentStep(kStep1);
    EXPECT_EQ(session->alignmentState(), AlignmentState::none);
    session->toggleAboveLock();
    session->toggleAboveLock();
    session->onPickWaterline(0.4);
    advance(0.1);
    session->setCurrentStep(kStep3);
    EXPECT_EQ(session->alignmentState(), AlignmentState::none);
    session->setCurrentStep(kStep1);
    EXPECT_EQ(session->alignmentState(), AlignmentState::pickingAbove);
    session->setCurrentStep(kStep2);
    EXPECT_EQ(session->alignmentState(), AlignmentState::none);
    session->toggleBelowLock();
    session->toggleBelowLock();
    session->onPickWaterline(0.6);
    advance(0.1);
    session->setCurrentStep(kStep4);
    EXPECT_EQ(session->alignmentState(), AlignmentState::none);
    session->setCurrentStep(kStep2);
    EXPECT_EQ(session->alignmentState(), AlignmentState::pickingBelow);
}

TEST_F(StepChange, FixesTheBasesOnTheWayFromTheFirstSteps)
{
    for (const WorkflowStep from : {kStep1, kStep2}) {
        session->setCurrentStep(from);
        edit([&](VideoCompositionConfig& config) {
            config.waterlineHeight = 200 + int(from);
            config.aboveOffset = 20 + int(from);
            config.aboveHorizontalOffset = 5 + int(from);
        });
        session->setCurrentStep(kStep3);
        EXPECT_EQ(session->relativeWaterlineHeight(), 0);
        EXPECT_EQ(session->relativeAboveOffset(), 0);
        EXPECT_EQ(session->relativeAboveHorizontalOffset(), 0);
    }
}

TEST_F(StepChange, KeepsTheBasesFromStepFourAndWithinStepThree)
{
    session->setCurrentStep(kStep3);
    session->setRelativeAboveOffset(9);
    session->setCurrentStep(kStep3);
    EXPECT_EQ(session->relativeAboveOffset(), 9);
    session->setCurrentStep(kStep4);
    session->setCurrentStep(kStep3);
    EXPECT_EQ(session->relativeAboveOffset(), 9);
}

TEST_F(StepChange, BothLocksMakeTheProjectSynced)
{
    loadBoth();
    lockBoth(10, 4);
    edit([](VideoCompositionConfig& config) { config.isSynced = false; });
    session->setCurrentStep(kStep3);
    EXPECT_TRUE(session->projectConfig().isSynced);
}

TEST_F(StepChange, OneLockLeavesSyncedAsItWasAndStepThreeWorksAllTheSame)
{
    for (const bool was : {false, true}) {
        session->setCurrentStep(kStep1);
        loadBoth({.duration = 60}, {.duration = 30});
        session->seek(10, true);
        session->toggleAboveLock();
        edit([&](VideoCompositionConfig& config) { config.isSynced = was; });
        session->setCurrentStep(kStep3);
        EXPECT_EQ(session->projectConfig().isSynced, was);
        EXPECT_EQ(session->duration(), 30);
        EXPECT_EQ(above().secondsNow(), 10);
    }
}

TEST_F(StepChange, FromTheFirstStepsBeginsTheComposite)
{
    loadBoth();
    lockBoth(10, 4);
    for (const WorkflowStep from : {kStep1, kStep2}) {
        session->setCurrentStep(from);
        forgetSeeks();
        session->setCurrentStep(kStep3);
        EXPECT_EQ(session->currentTime(), 0);
        EXPECT_EQ(above().seeks.back().target.seconds(), 6);
        EXPECT_EQ(below().seeks.back().target.seconds(), 0);
        EXPECT_EQ(above().seeks.back().tolerance, SeekTolerance::zero);
    }
}

TEST_F(StepChange, FromStepFourToThreeKeepsBasesTrimsAndThePlayhead)
{
    enterComposite(kStep4, {60, 10}, {30, 4});
    setTrims(2, 3);
    session->setRelativeWaterlineHeight(4);
    session->seek(20.5, true);
    session->setCurrentStep(kStep3);
    EXPECT_EQ(session->currentTime(), 20.5);
    EXPECT_EQ(session->relativeWaterlineHeight(), 4);
    expectTrims(2, 3);
}

TEST_F(StepChange, HoldsThePlayheadWithinAShorterTimeline)
{
    enterComposite(kStep4, {60, 10}, {30, 4});
    session->seek(30, true);
    edit([](VideoCompositionConfig& config) { config.timingOffset = -1000; });
    session->setCurrentStep(kStep3);
    EXPECT_EQ(session->duration(), 26);
    EXPECT_EQ(session->currentTime(), 26);
}

TEST_F(StepChange, FromStepThreeToFourOpensTheFullRange)
{
    enterComposite(kStep4, {60, 10}, {30, 4});
    setTrims(2, 3);
    session->setCurrentStep(kStep3);
    session->setCurrentStep(kStep4);
    expectTrims(0, 0);
    EXPECT_EQ(session->currentTime(), 0);
}

TEST_F(StepChange, FromAnotherStepToFourKeepsTheTrimsAndGoesToTheirStart)
{
    enterComposite(kStep4, {60, 10}, {30, 4});
    setTrims(2.5, 3);
    for (const WorkflowStep from : {kStep1, kStep2, kStep4}) {
        session->setCurrentStep(from);
        session->setCurrentStep(kStep4);
        expectTrims(2.5, 3);
        EXPECT_EQ(session->duration(), 30);
        EXPECT_EQ(session->currentTime(), 2.5);
        EXPECT_EQ(above().secondsNow(), 8.5);
        EXPECT_EQ(above().seeks.back().tolerance, SeekTolerance::zero);
    }
}

TEST_F(StepChange, RunsAsAWholeForAnEqualStep)
{
    enterComposite(kStep3, {60, 10}, {30, 4});
    session->seek(12.5, true);
    session->setCurrentStep(kStep3);
    EXPECT_EQ(session->currentTime(), 12.5);
    session->setCurrentStep(kStep1);
    session->seek(33, true);
    session->setCurrentStep(kStep1);
    EXPECT_EQ(session->currentTime(), 10);
}

TEST_F(StepChange, NeitherStopsNorStartsPlaying)
{
    loadBoth();
    session->play();
    advance(1);
    session->setCurrentStep(kStep2);
    EXPECT_TRUE(session->isPlaying());
    EXPECT_EQ(above().rate(), 1);
    EXPECT_EQ(below().rate(), 0);
    session->setCurrentStep(kStep3);
    EXPECT_EQ(above().rate(), 1);
    EXPECT_EQ(below().rate(), 0);
}

TEST_F(StepChange, IsNotRestricted)
{
    session->setCurrentStep(kStep4);
    EXPECT_EQ(session->currentStep(), kStep4);
    EXPECT_EQ(session->maxReachedStep(), kStep4);
}

}
}
