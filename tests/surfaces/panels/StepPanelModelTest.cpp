// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/panels/PanelHarness.h"

namespace zumeta {
namespace {

using namespace test;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

const QStringList kRunOrCancel{QStringLiteral("Run"), QStringLiteral("Cancel")};

QString looks(SideSetup& setup)
{
    QString signs;
    QAbstractItemModel& model = *setup.checklist();
    for (int row = 0; row < model.rowCount(); ++row)
        signs += model.index(row, 0).data(ChecklistModel::IsComplete).toBool() ? u'x'
                 : model.index(row, 0).data(ChecklistModel::IsActive).toBool() ? u'>'
                                                                               : u'.';
    return signs;
}

TEST_F(PanelTest, EveryPillLeadsToItsStepAtAnyTime)
{
    for (const int step : {4, 2, 3, 1}) {
        panel.goToStep(step);
        EXPECT_EQ(panel.step(), step);
        EXPECT_EQ(int(session->currentStep()), step);
    }
    EXPECT_EQ(panel.maxReachedStep(), 4);
}

TEST_F(PanelTest, TheChecklistFollowsTheSettingUpOfTheAboveSide)
{
    EXPECT_EQ(looks(*panel.aboveSetup()), QStringLiteral(">..."));
    loadAbove("/above.mp4");
    EXPECT_EQ(looks(*panel.aboveSetup()), QStringLiteral("x>.."));
    session->seek(5, true);
    EXPECT_EQ(looks(*panel.aboveSetup()), QStringLiteral("xx>."));
    panel.aboveSetup()->pressLock();
    EXPECT_EQ(looks(*panel.aboveSetup()), QStringLiteral("xxx>"));
    session->onPickWaterline(0.5);
    advance(0.1);
    EXPECT_EQ(looks(*panel.aboveSetup()), QStringLiteral("xxxx"));
}

TEST_F(PanelTest, TheChecklistFollowsTheSettingUpOfTheBelowSide)
{
    panel.goToStep(2);
    EXPECT_EQ(looks(*panel.belowSetup()), QStringLiteral(">..."));
    loadBelow("/below.mp4");
    session->seek(5, true);
    panel.belowSetup()->pressLock();
    EXPECT_EQ(looks(*panel.belowSetup()), QStringLiteral("xxx>"));
    EXPECT_EQ(session->manualSyncTimeBelow(), 5);
}

TEST_F(PanelTest, AChecklistTellsOfChangesAlone)
{
    loadAbove("/above.mp4");
    session->seek(5, true);
    int told = 0;
    QObject::connect(panel.aboveSetup()->checklist(), &QAbstractItemModel::dataChanged, [&] { ++told; });
    session->seek(6, true);
    EXPECT_EQ(told, 0);
    panel.aboveSetup()->pressLock();
    EXPECT_EQ(told, 1);
}

TEST_F(PanelTest, TheLockIsOffUntilTheSideHasAVideo)
{
    EXPECT_FALSE(panel.aboveSetup()->isLockAvailable());
    loadAbove("/above.mp4");
    EXPECT_TRUE(panel.aboveSetup()->isLockAvailable());
    EXPECT_FALSE(panel.belowSetup()->isLockAvailable());
}

TEST_F(PanelTest, TheLockSaysWhatAPressDoes)
{
    SideSetup& setup = *panel.aboveSetup();
    loadAbove("/above.mp4");
    EXPECT_EQ(setup.lockTitleKey(), QStringLiteral("Lock 5m Line"));
    EXPECT_EQ(setup.lockIcon(), QStringLiteral("lock-circle"));
    setup.pressLock();
    EXPECT_EQ(setup.lockTitleKey(), QStringLiteral("Unlock"));
    EXPECT_EQ(setup.lockIcon(), QStringLiteral("lock-open-circle"));
    setup.pressLock();
    EXPECT_EQ(setup.lockTitleKey(), QStringLiteral("Lock 5m Line"));
}

TEST_F(PanelTest, TheLockIsHighlightedOnceTheLandmarkMayBeFound)
{
    loadAbove("/above.mp4");
    EXPECT_FALSE(panel.aboveSetup()->isLockHighlighted());
    session->seek(5, true);
    EXPECT_TRUE(panel.aboveSetup()->isLockHighlighted());
    session->play();
    EXPECT_FALSE(panel.aboveSetup()->isLockHighlighted());
    session->pause();
    panel.aboveSetup()->pressLock();
    EXPECT_FALSE(panel.aboveSetup()->isLockHighlighted());
}

TEST_F(PanelTest, TheWayOnNeedsTheLockAndThePoint)
{
    SideSetup& setup = *panel.aboveSetup();
    loadAbove("/above.mp4");
    session->seek(5, true);
    setup.pressLock();
    EXPECT_FALSE(setup.canGoToNextStep());
    session->onPickWaterline(0.5);
    advance(0.1);
    EXPECT_TRUE(setup.canGoToNextStep());
    setup.pressLock();
    EXPECT_FALSE(setup.canGoToNextStep());
}

TEST_F(PanelTest, EachSideHasItsOwnTexts)
{
    EXPECT_EQ(panel.aboveSetup()->titleKey(), QStringLiteral("Step 1: Above Video"));
    EXPECT_EQ(panel.aboveSetup()->nextStepKey(), QStringLiteral("Go to Step 2"));
    EXPECT_EQ(panel.aboveSetup()->partialResetKey(), QStringLiteral("Reset Above Only"));
    EXPECT_EQ(panel.belowSetup()->titleKey(), QStringLiteral("Step 2: Below Video"));
    EXPECT_EQ(panel.belowSetup()->nextStepKey(), QStringLiteral("Go to Step 3"));
    EXPECT_EQ(panel.belowSetup()->partialResetKey(), QStringLiteral("Reset Below Only"));
}

TEST_F(PanelTest, ResettingOneSideNamesItAndAsks)
{
    loadAbove("/above.mp4");
    panel.resetAboveOnly();
    ASSERT_THAT(dialogs.alerts, SizeIs(1));
    EXPECT_EQ(dialogs.alerts[0].title, QStringLiteral("Reset?"));
    EXPECT_EQ(dialogs.alerts[0].message, QStringLiteral("Redo Above Only will be executed. Do you want to continue?"));
    EXPECT_EQ(dialogs.alerts[0].buttons, kRunOrCancel);
    EXPECT_TRUE(dialogs.alerts[0].isDestructive);
    EXPECT_TRUE(session->aboveVideoURL());
    answer(0);
    EXPECT_FALSE(session->aboveVideoURL());
}

TEST_F(PanelTest, ResettingTheBelowSideLeavesTheAboveOne)
{
    loadBoth();
    lockBoth(10, 4);
    panel.resetBelowOnly();
    EXPECT_EQ(dialogs.alerts.at(0).message,
              QStringLiteral("Redo Below Only will be executed. Do you want to continue?"));
    answer(0);
    EXPECT_FALSE(session->belowVideoURL());
    EXPECT_TRUE(session->manualSyncTimeAbove());
    EXPECT_EQ(panel.step(), 2);
}

TEST_F(PanelTest, ACancelledQuestionChangesNothing)
{
    loadAbove("/above.mp4");
    panel.resetAboveOnly();
    answer(1);
    EXPECT_TRUE(session->aboveVideoURL());
    panel.startOver();
    answer(1);
    EXPECT_TRUE(session->aboveVideoURL());
    EXPECT_THAT(dialogs.alerts, SizeIs(2));
}

TEST_F(PanelTest, StartingOverAsksAndEmptiesTheSession)
{
    enterComposite(WorkflowStep::step4, {60, 10}, {30, 4});
    session->setHasSliderBeenMoved(true);
    panel.startOver();
    EXPECT_EQ(dialogs.alerts.at(0).title, QStringLiteral("Reset?"));
    EXPECT_EQ(dialogs.alerts.at(0).message,
              QStringLiteral("All settings will be reset from the beginning. Do you want to continue?"));
    EXPECT_EQ(dialogs.alerts.at(0).buttons, kRunOrCancel);
    answer(0);
    EXPECT_EQ(panel.step(), 1);
    EXPECT_EQ(panel.maxReachedStep(), 1);
    EXPECT_FALSE(session->aboveVideoURL());
    EXPECT_FALSE(session->hasSliderBeenMoved());
    EXPECT_TRUE(hasLogged(QStringLiteral("Application Reset Complete")));
}

TEST_F(PanelTest, AQuestionAboutAStepThatWasLeftMeanwhileIsNotActedUpon)
{
    loadAbove("/above.mp4");
    panel.startOver();
    panel.goToStep(2);
    answer(0);
    EXPECT_TRUE(session->aboveVideoURL());
}

TEST_F(PanelTest, OneQuestionAtATime)
{
    loadAbove("/above.mp4");
    panel.startOver();
    panel.resetAboveOnly();
    EXPECT_THAT(dialogs.alerts, SizeIs(1));
    answer(1);
    panel.resetAboveOnly();
    EXPECT_THAT(dialogs.alerts, SizeIs(2));
}

TEST_F(PanelTest, AQuestionOutlivesThePanelUnharmed)
{
    loadAbove("/above.mp4");
    {
        StepPanelModel other{*session, notifications, dialogs, languages};
        other.startOver();
    }
    answer(0);
    EXPECT_TRUE(session->aboveVideoURL());
}

TEST_F(PanelTest, ResettingTheValuesRecordsAndMarksWhenItRuns)
{
    enterComposite(WorkflowStep::step3, {60, 10}, {30, 4});
    session->setAboveZoom(12);
    const std::size_t before = undoCount();
    panel.resetAdjustmentValues();
    EXPECT_EQ(dialogs.alerts.at(0).message, QStringLiteral("Reset Values will be executed. Do you want to continue?"));
    EXPECT_EQ(undoCount(), before);
    EXPECT_FALSE(session->hasInteractedWithStep3Adjustments());
    answer(0);
    EXPECT_EQ(session->aboveZoom(), 0);
    EXPECT_EQ(undoCount(), before + 1);
    EXPECT_TRUE(session->hasInteractedWithStep3Adjustments());
    session->undoLastStepEdit();
    EXPECT_EQ(session->aboveZoom(), 12);
}

TEST_F(PanelTest, TheSwitchesOfStepThreeMarkAndRecord)
{
    enterComposite(WorkflowStep::step3, {60, 10}, {30, 4});
    EXPECT_TRUE(panel.isLoopOn());
    EXPECT_FALSE(panel.isSlowOn());
    panel.toggleLoop();
    EXPECT_FALSE(panel.isLoopOn());
    EXPECT_TRUE(session->hasInteractedWithStep3Adjustments());
    panel.toggleSlow();
    EXPECT_TRUE(panel.isSlowOn());
    EXPECT_EQ(undoCount(), 2u);
    session->undoLastStepEdit();
    session->undoLastStepEdit();
    EXPECT_TRUE(panel.isLoopOn());
    EXPECT_FALSE(panel.isSlowOn());
}

TEST_F(PanelTest, StepFourIsOfferedWithOneVideoAndNotWithout)
{
    panel.goToStep(3);
    EXPECT_FALSE(panel.canExport());
    loadBelow("/below.mp4");
    EXPECT_TRUE(panel.canExport());
    panel.goToStep4();
    EXPECT_EQ(panel.step(), 4);
}

TEST_F(PanelTest, SavingIsOfferedFromStepThreeOn)
{
    std::vector<bool> offers;
    for (const int step : {1, 2, 3, 4}) {
        panel.goToStep(step);
        offers.push_back(panel.canSave());
    }
    EXPECT_THAT(offers, ElementsAre(false, false, true, true));
}

TEST_F(PanelTest, SavingBringsTheProjectUpToDateAndShowsThePanel)
{
    enterComposite(WorkflowStep::step3, {60, 10}, {30, 4});
    panel.save();
    advance(1);
    EXPECT_TRUE(session->showSaveProjectPanel());
}

TEST_F(PanelTest, OpeningShowsThePanel)
{
    panel.open();
    EXPECT_TRUE(session->showOpenProjectPanel());
}

TEST_F(PanelTest, TheCameraIsChosenAnewWithoutLosingWork)
{
    session->setCameraSelectionConfirmed(true);
    loadAbove("/above.mp4");
    panel.changeCamera();
    EXPECT_FALSE(session->isCameraSelectionConfirmed());
    EXPECT_TRUE(session->aboveVideoURL());
}

TEST_F(PanelTest, AFieldIsLeftBeforeItsStepIs)
{
    int stepAtClear = 0;
    int stepShownAtClear = 0;
    notifications.observe(notifications::kClearTextFieldFocus, &observer, [&](const QVariantMap&) {
        if (stepAtClear == 0) {
            stepAtClear = int(session->currentStep());
            stepShownAtClear = panel.step();
        }
    });
    panel.goToStep(3);
    EXPECT_EQ(stepAtClear, 1);
    EXPECT_EQ(stepShownAtClear, 1);
}

TEST_F(PanelTest, AFieldIsLeftBeforeItsViewGoesWhoeverChangesTheStep)
{
    std::vector<std::string> order;
    notifications.observe(notifications::kClearTextFieldFocus, &observer,
                          [&](const QVariantMap&) { order.emplace_back("left"); });
    QObject::connect(&panel, &StepPanelModel::changed, [&] { order.emplace_back("shown"); });
    session->setCurrentStep(WorkflowStep::step3);
    EXPECT_THAT(order, ElementsAre("left", "shown"));
}

TEST_F(PanelTest, PlaybackLeavesFieldsAlone)
{
    enterComposite(WorkflowStep::step3, {60, 10}, {30, 4});
    clears = 0;
    panel.toggleLoop();
    session->play();
    advance(1);
    EXPECT_EQ(clears, 0);
}

}
}
