// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/StepFour.h"

namespace zumeta {
namespace {

using namespace test;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr auto kStep3 = WorkflowStep::step3;
constexpr auto kStep4 = WorkflowStep::step4;

struct Requests : StepFour {
    void askForTrim(const QVariant& point)
    {
        post(notifications::kSetTrimPointToPlayhead, {{QStringLiteral("point"), point}});
    }
    void navigate(const QVariant& direction)
    {
        post(notifications::kNavigateTrimMarker, {{QStringLiteral("direction"), direction}});
    }
};

struct TrimRequests : Requests {};

TEST_F(TrimRequests, TheLockKeyAddsAMarkerInStepFour)
{
    session->seek(8, true);
    post(notifications::kMarkSyncPoint);
    EXPECT_THAT(session->trimMarkers(), ElementsAre(8));
    EXPECT_EQ(session->selectedTrimMarker(), 8);
    EXPECT_EQ(session->manualSyncTimeAbove(), 10);
    EXPECT_EQ(session->manualSyncTimeBelow(), 4);
}

TEST_F(TrimRequests, TheLockKeyAddsNoMarkerInTheOtherSteps)
{
    for (const WorkflowStep step : {WorkflowStep::step1, WorkflowStep::step2, kStep3}) {
        session->setCurrentStep(step);
        post(notifications::kMarkSyncPoint);
        EXPECT_THAT(session->trimMarkers(), IsEmpty()) << int(step);
    }
}

TEST_F(TrimRequests, SetTheStartAndTheEndToThePlayhead)
{
    session->seek(5, true);
    askForTrim(QStringLiteral("start"));
    session->seek(22, true);
    askForTrim(QStringLiteral("end"));
    EXPECT_EQ(session->trimStart(), 5);
    EXPECT_EQ(session->trimEndPosition(), 22);
    EXPECT_TRUE(session->hasInteractedWithStep4ExportControls());
    EXPECT_EQ(undoCount(), 2u);
}

TEST_F(TrimRequests, DoNotSetOneEndOntoTheOtherButCountAsUse)
{
    session->seek(30, true);
    askForTrim(QStringLiteral("start"));
    EXPECT_EQ(session->trimStart(), 0);
    EXPECT_TRUE(session->hasInteractedWithStep4ExportControls());
    EXPECT_EQ(undoCount(), 1u);
    session->seek(0, true);
    askForTrim(QStringLiteral("end"));
    EXPECT_EQ(session->trimEndPosition(), 30);
    EXPECT_EQ(undoCount(), 2u);
}

TEST_F(TrimRequests, ForAnotherPointOrNoneOnlyCountAsUse)
{
    session->seek(5, true);
    for (const QVariant& point :
         {QVariant(), QVariant(QStringLiteral("middle")), QVariant(QStringLiteral("Start")), QVariant(1)}) {
        session->setHasInteractedWithStep4ExportControls(false);
        askForTrim(point);
        EXPECT_EQ(session->trimStart(), 0);
        EXPECT_EQ(session->trimEndPosition(), 30);
        EXPECT_TRUE(session->hasInteractedWithStep4ExportControls());
    }
    EXPECT_EQ(undoCount(), 1u);
}

TEST_F(TrimRequests, SetNothingInTheOtherSteps)
{
    for (const WorkflowStep step : {WorkflowStep::step1, WorkflowStep::step2, kStep3}) {
        session->setCurrentStep(step);
        session->seek(5, true);
        askForTrim(QStringLiteral("start"));
        askForTrim(QStringLiteral("end"));
        EXPECT_EQ(session->projectConfig().exportTrimStartSeconds, 0) << int(step);
        EXPECT_EQ(session->projectConfig().exportTrimEndSeconds, 0) << int(step);
    }
    EXPECT_FALSE(session->hasInteractedWithStep4ExportControls());
    EXPECT_EQ(undoCount(), 0u);
}

TEST_F(TrimRequests, DeleteTheSelectedMarkerInStepFourAlone)
{
    session->seek(8, true);
    session->addTrimMarkerAtCurrentTime();
    for (const WorkflowStep step : {WorkflowStep::step1, WorkflowStep::step2, kStep3}) {
        session->setCurrentStep(step);
        post(notifications::kDeleteSelectedTrimMarker);
        EXPECT_THAT(session->trimMarkers(), ElementsAre(8)) << int(step);
    }
    session->setCurrentStep(kStep4);
    post(notifications::kDeleteSelectedTrimMarker);
    EXPECT_THAT(session->trimMarkers(), IsEmpty());
}

TEST_F(TrimRequests, NavigateTheWayThatTheyCarry)
{
    session->seek(8, true);
    session->addTrimMarkerAtCurrentTime();
    navigate(1);
    EXPECT_EQ(session->currentTime(), 30);
    navigate(-1);
    EXPECT_EQ(session->currentTime(), 8);
}

TEST_F(TrimRequests, WithoutADirectionNavigateNowhere)
{
    post(notifications::kNavigateTrimMarker);
    navigate(QStringLiteral("1"));
    navigate(1.0);
    EXPECT_EQ(session->currentTime(), 0);
    EXPECT_EQ(undoCount(), 0u);
}

TEST_F(TrimRequests, NavigateInStepFourAlone)
{
    session->setCurrentStep(kStep3);
    navigate(1);
    EXPECT_EQ(session->currentTime(), 0);
}

TEST_F(TrimRequests, UndoAndRedo)
{
    session->seek(5, true);
    askForTrim(QStringLiteral("start"));
    post(notifications::kUndoStepEdit);
    EXPECT_EQ(session->trimStart(), 0);
    post(notifications::kRedoStepEdit);
    EXPECT_EQ(session->trimStart(), 5);
}

// The panel is hidden then, so it is not the panel that listens.
TEST_F(TrimRequests, WorkInFullScreen)
{
    session->setFullScreen(true);
    session->seek(5, true);
    askForTrim(QStringLiteral("start"));
    post(notifications::kMarkSyncPoint);
    EXPECT_EQ(session->trimStart(), 5);
    EXPECT_THAT(session->trimMarkers(), ElementsAre(5));
    post(notifications::kDeleteSelectedTrimMarker);
    EXPECT_THAT(session->trimMarkers(), IsEmpty());
}

struct PanelActions : Requests {};

TEST_F(PanelActions, TheBeginningOfAnAdjustmentRecordsAndCountsAsUse)
{
    session->setCurrentStep(kStep3);
    session->beginStep3Adjustment();
    EXPECT_TRUE(session->hasInteractedWithStep3Adjustments());
    EXPECT_FALSE(session->hasInteractedWithStep4ExportControls());
    session->setBlendAmount(30);
    session->beginStep3Adjustment();
    EXPECT_EQ(undoCount(), 2u);
}

TEST_F(PanelActions, TheBeginningOfATrimRecordsAndCountsAsUse)
{
    session->beginStep4Adjustment();
    session->setTrimStart(5);
    EXPECT_TRUE(session->hasInteractedWithStep4ExportControls());
    EXPECT_FALSE(session->hasInteractedWithStep3Adjustments());
    session->undoLastStepEdit();
    EXPECT_EQ(session->trimStart(), 0);
}

TEST_F(PanelActions, OfStepFourCountAsItsUseThereAlone)
{
    session->setCurrentStep(kStep3);
    session->markStep4ExportControlsInteracted();
    EXPECT_FALSE(session->hasInteractedWithStep4ExportControls());
}

TEST_F(PanelActions, TheSwitchesOfPlaybackCanBeUndoneAndCountAsUse)
{
    session->setCurrentStep(kStep3);
    session->pressLoopPlayback();
    EXPECT_FALSE(session->isStep3LoopEnabled());
    EXPECT_TRUE(session->hasInteractedWithStep3Adjustments());
    session->pressSlowPlayback();
    EXPECT_TRUE(session->isStep3SlowPlaybackEnabled());
    session->undoLastStepEdit();
    EXPECT_FALSE(session->isStep3SlowPlaybackEnabled());
    EXPECT_FALSE(session->isStep3LoopEnabled());
    session->undoLastStepEdit();
    EXPECT_TRUE(session->isStep3LoopEnabled());
}

TEST_F(PanelActions, TheResetOfTheAdjustmentsIsOneEntryAndCountsAsUse)
{
    session->setCurrentStep(kStep3);
    session->setBlendAmount(30);
    session->pressResetAdjustmentValues();
    EXPECT_EQ(session->blendAmount(), 15);
    EXPECT_TRUE(session->hasInteractedWithStep3Adjustments());
    EXPECT_EQ(undoCount(), 1u);
}

TEST_F(PanelActions, TheWayToStepFourCanBeUndoneThere)
{
    session->setTrimStart(5);
    session->setCurrentStep(kStep3);
    session->seek(9, true);
    session->pressGoToStep4();
    EXPECT_EQ(session->currentStep(), kStep4);
    EXPECT_TRUE(session->hasInteractedWithStep3Adjustments());
    EXPECT_EQ(session->trimStart(), 0);
    session->undoLastStepEdit();
    EXPECT_EQ(session->currentStep(), kStep4);
    EXPECT_EQ(session->trimStart(), 5);
    EXPECT_EQ(session->currentTime(), 9);
}

TEST_F(PanelActions, StartingOverResetsTheProject)
{
    session->setCurrentStep(WorkflowStep::step1);
    session->setHasSliderBeenMoved(true);
    session->pressStartOver();
    EXPECT_EQ(session->aboveVideoURL(), std::nullopt);
    EXPECT_FALSE(session->hasSliderBeenMoved());
    EXPECT_TRUE(hasLogged(QStringLiteral("Application Reset Complete")));
}

TEST_F(PanelActions, StartingOverIsRecordedInStepThreeAlone)
{
    session->setCurrentStep(kStep4);
    session->pressStartOver();
    EXPECT_EQ(undoCount(), 0u);
    session->setCurrentStep(kStep3);
    session->setBlendAmount(30);
    session->pressStartOver();
    EXPECT_EQ(undoCount(), 1u);
    session->setCurrentStep(kStep3);
    session->undoLastStepEdit();
    EXPECT_EQ(session->blendAmount(), 30);
}

}
}
