// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/SessionHarness.h"

namespace zumeta {
namespace {

using namespace test;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr double kReport = 1.0 / 60;

/// A composite of 30 seconds in Step 3; its above video begins 6 seconds in.
struct StepEditing : SessionTest {
    StepEditing() { enterComposite(WorkflowStep::step3, {60, 10}, {30, 4}); }

    void editBlend(double value)
    {
        session->recordStepEditUndoSnapshot();
        session->setBlendAmount(value);
    }
    std::size_t undoCount() const { return session->stepEditHistory().undoCount(); }
    std::size_t redoCount() const { return session->stepEditHistory().redoCount(); }
    void expectPlayersAt(double compositeTime)
    {
        EXPECT_EQ(session->currentTime(), compositeTime);
        EXPECT_DOUBLE_EQ(above().secondsNow() - below().secondsNow(), 6);
        EXPECT_DOUBLE_EQ(below().secondsNow(), compositeTime);
    }
};

TEST_F(StepEditing, RecordsInStepsThreeAndFourAlone)
{
    for (const auto& [step, count] : {std::pair(WorkflowStep::step1, 0u),
                                      {WorkflowStep::step2, 0u},
                                      {WorkflowStep::step3, 1u},
                                      {WorkflowStep::step4, 2u}}) {
        session->setCurrentStep(step);
        session->setBlendAmount(int(step));
        session->recordStepEditUndoSnapshot();
        EXPECT_EQ(undoCount(), count) << int(step);
    }
}

TEST_F(StepEditing, InTheFirstTwoStepsUndoAndRedoDoNothing)
{
    editBlend(20);
    editBlend(30);
    session->undoLastStepEdit();
    for (const WorkflowStep step : {WorkflowStep::step1, WorkflowStep::step2}) {
        session->setCurrentStep(step);
        post(notifications::kUndoStepEdit);
        post(notifications::kRedoStepEdit);
        session->undoLastStepEdit();
        session->redoLastStepEdit();
        EXPECT_EQ(session->blendAmount(), 20);
        EXPECT_EQ(undoCount(), 1u);
        EXPECT_EQ(redoCount(), 1u);
        EXPECT_FALSE(session->canUndoStepEdit());
        EXPECT_FALSE(session->canRedoStepEdit());
    }
}

TEST_F(StepEditing, UndoBringsBackAllValuesAndRedoAllThatWereLeft)
{
    session->setCurrentStep(WorkflowStep::step4);
    session->seek(5, true);
    session->addTrimMarkerAtCurrentTime();
    edit([](VideoCompositionConfig& config) {
        config.waterlineHeight = 1;
        config.aboveOffset = 2;
        config.aboveHorizontalOffset = 3;
        config.aboveZoom = 4;
        config.timingOffset = 5;
        config.blendAmount = 6;
        config.exportTrimStartSeconds = 7;
        config.exportTrimEndSeconds = 8;
    });
    const VideoCompositionConfig before = session->projectConfig();
    session->recordStepEditUndoSnapshot();
    edit([](VideoCompositionConfig& config) {
        config.waterlineHeight = 11;
        config.aboveOffset = 12;
        config.aboveHorizontalOffset = 13;
        config.aboveZoom = 14;
        config.timingOffset = 15;
        config.blendAmount = 16;
        config.exportTrimStartSeconds = 9;
        config.exportTrimEndSeconds = 10;
    });
    session->setStep3LoopEnabled(false);
    session->toggleStep3SlowPlayback();
    session->updateSelectedTrimMarker(9);
    session->undoLastStepEdit();
    session->undoLastStepEdit();
    EXPECT_EQ(session->projectConfig(), before);
    EXPECT_EQ(session->projectState().projectConfig, before);
    EXPECT_TRUE(session->isStep3LoopEnabled());
    EXPECT_FALSE(session->isStep3SlowPlaybackEnabled());
    EXPECT_THAT(session->trimMarkers(), ElementsAre(5));
    EXPECT_EQ(session->selectedTrimMarker(), 5);
    EXPECT_EQ(session->currentTime(), 5);
    session->redoLastStepEdit();
    session->redoLastStepEdit();
    EXPECT_EQ(session->projectConfig().waterlineHeight, 11);
    EXPECT_EQ(session->projectConfig().blendAmount, 16);
    EXPECT_EQ(session->projectConfig().exportTrimEndSeconds, 10);
    EXPECT_FALSE(session->isStep3LoopEnabled());
    EXPECT_TRUE(session->isStep3SlowPlaybackEnabled());
    EXPECT_THAT(session->trimMarkers(), ElementsAre(9));
    EXPECT_EQ(session->currentTime(), 9);
}

TEST_F(StepEditing, UndoLeavesWhatIsNoStepEdit)
{
    editBlend(20);
    edit([](VideoCompositionConfig& config) { config.aboveStartTime = 11; });
    session->setHasInteractedWithStep3Adjustments(true);
    session->undoLastStepEdit();
    EXPECT_EQ(session->projectConfig().aboveStartTime, 11);
    EXPECT_TRUE(session->projectConfig().isSynced);
    EXPECT_TRUE(session->hasInteractedWithStep3Adjustments());
    EXPECT_EQ(session->currentStep(), WorkflowStep::step3);
}

TEST_F(StepEditing, AnEmptyUndoLeavesTheRedosAsTheyAre)
{
    editBlend(20);
    session->undoLastStepEdit();
    session->undoLastStepEdit();
    EXPECT_EQ(session->blendAmount(), 15);
    EXPECT_EQ(redoCount(), 1u);
    EXPECT_EQ(undoCount(), 0u);
}

TEST_F(StepEditing, TwoRecordsWithoutAChangeAreOneEntry)
{
    session->recordStepEditUndoSnapshot();
    session->recordStepEditUndoSnapshot();
    EXPECT_EQ(undoCount(), 1u);
}

TEST_F(StepEditing, APlayheadThatMovedAloneIsAChange)
{
    session->recordStepEditUndoSnapshot();
    session->seek(3, true);
    session->recordStepEditUndoSnapshot();
    EXPECT_EQ(undoCount(), 2u);
}

TEST_F(StepEditing, ASelectionAtZeroIsAnotherStateThanNone)
{
    session->setCurrentStep(WorkflowStep::step4);
    session->recordStepEditUndoSnapshot();
    session->selectTrimMarkerForEditing(0);
    session->recordStepEditUndoSnapshot();
    EXPECT_EQ(undoCount(), 2u);
}

TEST_F(StepEditing, ARecordAfterAChangeEndsTheRedosAndOneWithoutDoesNot)
{
    editBlend(20);
    editBlend(30);
    session->undoLastStepEdit();
    session->undoLastStepEdit();
    session->redoLastStepEdit();
    session->setBlendAmount(15);
    session->recordStepEditUndoSnapshot();
    EXPECT_EQ(redoCount(), 1u);
    editBlend(40);
    EXPECT_EQ(redoCount(), 1u) << "the state is still the recorded one";
    editBlend(50);
    EXPECT_EQ(redoCount(), 0u);
}

TEST_F(StepEditing, TheEightyFirstRecordDropsTheOldest)
{
    for (int i = 0; i <= 80; ++i)
        editBlend(100 + i);
    EXPECT_EQ(undoCount(), 80u);
    while (undoCount() > 0)
        session->undoLastStepEdit();
    EXPECT_EQ(session->blendAmount(), 100);
    while (redoCount() > 0)
        session->redoLastStepEdit();
    EXPECT_EQ(session->blendAmount(), 180);
    EXPECT_EQ(undoCount(), 80u);
}

TEST_F(StepEditing, ADragIsOneEntryForEachStepThatChangedSomething)
{
    for (const double value : {20.0, 20.0, 21.0, 21.0})
        editBlend(value);
    EXPECT_EQ(undoCount(), 3u);
    session->undoLastStepEdit();
    session->undoLastStepEdit();
    EXPECT_EQ(session->blendAmount(), 20);
}

TEST_F(StepEditing, UndoReachesATimeThatOnlyTheFormerTimingHas)
{
    session->seek(29, true);
    session->recordStepEditUndoSnapshot();
    session->setTimingOffset(-1000);
    ASSERT_EQ(session->duration(), 26);
    ASSERT_EQ(session->currentTime(), 26);
    session->undoLastStepEdit();
    EXPECT_EQ(session->duration(), 30);
    expectPlayersAt(29);
    session->redoLastStepEdit();
    EXPECT_EQ(session->duration(), 26);
    EXPECT_EQ(session->currentTime(), 26);
    EXPECT_DOUBLE_EQ(below().secondsNow(), above().secondsNow() + 4);
}

TEST_F(StepEditing, UndoBringsBackTrimsThatAShorterTimelineHadCut)
{
    edit([](VideoCompositionConfig& config) {
        config.exportTrimStartSeconds = 27;
        config.exportTrimEndSeconds = 2;
    });
    session->recordStepEditUndoSnapshot();
    session->setTimingOffset(-1000);
    ASSERT_EQ(session->trimStart(), 26);
    session->undoLastStepEdit();
    EXPECT_EQ(session->trimStart(), 27);
    EXPECT_EQ(session->trimEndPosition(), 28);
}

TEST_F(StepEditing, UndoSeeksPrecisely)
{
    session->seek(12, true);
    editBlend(20);
    session->seek(3, false);
    session->undoLastStepEdit();
    expectPlayersAt(12);
    EXPECT_EQ(above().seeks.back().tolerance, SeekTolerance::zero);
    EXPECT_EQ(below().seeks.back().tolerance, SeekTolerance::zero);
}

TEST_F(StepEditing, WhilePlayingGoesOnFromTheFormerTime)
{
    session->seek(12, true);
    editBlend(20);
    session->play();
    advance(3);
    session->undoLastStepEdit();
    EXPECT_TRUE(session->isPlaying());
    advance(1);
    EXPECT_NEAR(session->currentTime(), 13, kReport);
    EXPECT_NEAR(above().secondsNow() - 6, below().secondsNow(), 1e-6);
}

TEST_F(StepEditing, WhilePlayingTheRateFollowsTheSwitchThatComesBack)
{
    session->pressSlowPlayback();
    session->play();
    advance(1);
    ASSERT_EQ(above().rate(), 0.5);
    session->undoLastStepEdit();
    EXPECT_EQ(above().rate(), 1);
    EXPECT_EQ(below().rate(), 1);
    EXPECT_EQ(above().rateChanges.back().hostTime, below().rateChanges.back().hostTime);
    advance(2);
    EXPECT_NEAR(session->currentTime(), 2, kReport);
    EXPECT_NEAR(above().secondsNow() - 6, below().secondsNow(), 1e-6);
    session->redoLastStepEdit();
    EXPECT_EQ(above().rate(), 0.5);
    EXPECT_EQ(below().rate(), 0.5);
}

TEST_F(StepEditing, WhilePlayingTheRateOfTheKeysStaysWhenTheSwitchDoes)
{
    editBlend(20);
    session->play();
    session->adjustPlaybackRate(true);
    session->undoLastStepEdit();
    EXPECT_EQ(above().rate(), 2);
    EXPECT_EQ(below().rate(), 2);
}

TEST_F(StepEditing, WhilePausedTheSwitchThatComesBackStartsNothing)
{
    session->pressSlowPlayback();
    session->undoLastStepEdit();
    EXPECT_FALSE(session->isPlaying());
    EXPECT_EQ(above().rate(), 0);
    EXPECT_EQ(below().rate(), 0);
}

TEST_F(StepEditing, InStepFourTheSwitchThatComesBackLeavesTheRate)
{
    session->pressSlowPlayback();
    session->setCurrentStep(WorkflowStep::step4);
    session->play();
    above().rateChanges.clear();
    session->undoLastStepEdit();
    EXPECT_FALSE(session->isStep3SlowPlaybackEnabled());
    EXPECT_EQ(above().rate(), 1);
    EXPECT_THAT(above().rateChanges, IsEmpty());
}

TEST_F(StepEditing, AFollowerOfTheValuesThatComeBackRecordsNothing)
{
    editBlend(20);
    editBlend(30);
    QObject::connect(session.get(), &CompositorViewModel::projectConfigChanged,
                     [this] { session->recordStepEditUndoSnapshot(); });
    session->undoLastStepEdit();
    EXPECT_EQ(undoCount(), 1u);
    EXPECT_EQ(redoCount(), 1u);
    editBlend(40);
    EXPECT_EQ(undoCount(), 3u) << "afterwards everything records again";
}

TEST_F(StepEditing, ObserversSeeTheWholeStateThatComesBack)
{
    session->seek(29, true);
    session->recordStepEditUndoSnapshot();
    session->setTimingOffset(-1000);
    double seen = 0;
    QObject::connect(session.get(), &CompositorViewModel::projectConfigChanged, [&] { seen = session->currentTime(); });
    session->undoLastStepEdit();
    EXPECT_EQ(seen, 29);
}

TEST_F(StepEditing, IsToldOfEvenWhenNoValueComesBackDifferent)
{
    session->recordStepEditUndoSnapshot();
    int changes = 0;
    QObject::connect(session.get(), &CompositorViewModel::changed, [&] { ++changes; });
    session->undoLastStepEdit();
    EXPECT_EQ(changes, 1);
}

TEST_F(StepEditing, SaysWhatCanBeUndoneAndRedone)
{
    EXPECT_FALSE(session->canUndoStepEdit());
    int changes = 0;
    QObject::connect(session.get(), &CompositorViewModel::changed, [&] { ++changes; });
    session->recordStepEditUndoSnapshot();
    EXPECT_EQ(changes, 1);
    EXPECT_TRUE(session->canUndoStepEdit());
    EXPECT_FALSE(session->canRedoStepEdit());
    session->undoLastStepEdit();
    EXPECT_FALSE(session->canUndoStepEdit());
    EXPECT_TRUE(session->canRedoStepEdit());
}

TEST_F(StepEditing, CoversTheResetOfTheAdjustments)
{
    session->setBlendAmount(30);
    session->setRelativeAboveOffset(9);
    session->setTimingOffset(-1000);
    session->resetStep3AdjustmentValues();
    EXPECT_EQ(session->blendAmount(), 15);
    EXPECT_EQ(undoCount(), 1u);
    session->undoLastStepEdit();
    EXPECT_EQ(session->blendAmount(), 30);
    EXPECT_EQ(session->relativeAboveOffset(), 9);
    EXPECT_EQ(session->duration(), 26);
}

TEST_F(StepEditing, OutlivesTheProject)
{
    session->setCurrentStep(WorkflowStep::step4);
    session->setBlendAmount(30);
    session->seek(12, true);
    session->addTrimMarkerAtCurrentTime();
    session->applySelectedMarkerToTrimStart();
    session->recordStepEditUndoSnapshot();
    session->resetProject();
    ASSERT_EQ(session->blendAmount(), 15);
    loadBoth({.duration = 60}, {.duration = 30});
    lockBoth(10, 4);
    session->setCurrentStep(WorkflowStep::step3);
    EXPECT_EQ(undoCount(), 3u);
    session->undoLastStepEdit();
    EXPECT_EQ(session->blendAmount(), 30);
    EXPECT_EQ(session->trimStart(), 12);
    EXPECT_THAT(session->trimMarkers(), ElementsAre(12));
    expectPlayersAt(12);
}

TEST_F(StepEditing, OutlivesTheLoadingOfAVideo)
{
    editBlend(20);
    editBlend(30);
    session->undoLastStepEdit();
    loadAbove("/other.mp4");
    EXPECT_EQ(undoCount(), 1u);
    EXPECT_EQ(redoCount(), 1u);
}

}
}
