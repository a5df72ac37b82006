// SPDX-License-Identifier: GPL-3.0-or-later
#include "journeys/window/PanelJourney.h"

#include <QTest>

namespace zumeta {
namespace {

using namespace test;
using testing::IsEmpty;
using testing::SizeIs;

constexpr auto kRun = "alertButton0";
constexpr auto kCancel = "alertButton1";

/// Of an item of the checklist: done, next, or neither.
QString looksOf(QQuickItem* checklistItem)
{
    return checklistItem->property("isComplete").toBool() ? QStringLiteral("x")
           : checklistItem->property("isActive").toBool() ? QStringLiteral(">")
                                                          : QStringLiteral(".");
}

struct Panel : PanelJourney {
    QString checklist()
    {
        return looksOf(item("checklistItem1")) + looksOf(item("checklistItem2")) + looksOf(item("checklistItem3")) +
               looksOf(item("checklistItem4"));
    }
    /// In a window in which the panel then has to scroll.
    void openAdvanced()
    {
        click(item("advancedDisclosure"));
        ASSERT_TRUE(waitFor([&] {
            return item("Boundary Blur") &&
                   item("panelView")->property("contentHeight").toDouble() > item("panelView")->height();
        }));
    }
};

TEST_F(Panel, LeadsThroughTheFirstStep)
{
    openEmptyPanel();
    EXPECT_EQ(checklist(), QStringLiteral(">..."));
    EXPECT_FALSE(item("lockButton")->isEnabled());
    click(item("lockButton"));
    EXPECT_FALSE(session().manualSyncTimeAbove());
    loadVideo(Side::above);
    EXPECT_EQ(checklist(), QStringLiteral("x>.."));
    seekTo(1);
    EXPECT_EQ(checklist(), QStringLiteral("xx>."));
    ASSERT_TRUE(item("lockButton")->isEnabled());
    EXPECT_TRUE(item("lockButton")->property("hasGlow").toBool());
    const double place = item("resetButton")->mapToScene({0, 0}).y();
    click(item("lockButton"));
    EXPECT_EQ(session().manualSyncTimeAbove(), 1);
    EXPECT_EQ(checklist(), QStringLiteral("xxx>"));
    EXPECT_TRUE(itemWithText(text("Unlock")));
    EXPECT_FALSE(item("nextStepButton"));
    session().onPickWaterline(0.5);
    ASSERT_TRUE(waitFor([&] { return item("nextStepButton") != nullptr; }));
    EXPECT_EQ(checklist(), QStringLiteral("xxxx"));
    EXPECT_EQ(item("resetButton")->mapToScene({0, 0}).y(), place) << "what pops in must not push anything away";
    click(item("nextStepButton"));
    ASSERT_TRUE(waitForStep(2));
    EXPECT_TRUE(waitFor([&] { return itemWithText(text("Step 2: Below Video")) != nullptr; }));
    EXPECT_EQ(checklist(), QStringLiteral(">..."));
}

TEST_F(Panel, GoesToAnyStepByItsPill)
{
    openEmptyPanel();
    const char* const titles[] = {"Step 1: Above Video", "Step 2: Below Video", "Step 3: Fine Tune", "Step 4: Export"};
    for (const int step : {4, 1, 3, 2}) {
        click(item(QStringLiteral("stepPill%1").arg(step).toLatin1()));
        ASSERT_TRUE(waitForStep(step));
        EXPECT_TRUE(waitFor([&] { return itemWithText(text(titles[step - 1])) != nullptr; })) << step;
    }
}

TEST_F(Panel, AsksBeforeItBeginsAnew)
{
    openPanel(1);
    click(item("partialResetButton"));
    answer(kCancel);
    EXPECT_TRUE(session().aboveVideoURL());
    click(item("partialResetButton"));
    ASSERT_TRUE(waitFor([&] { return item(kRun) != nullptr; }));
    EXPECT_TRUE(itemWithText(QStringLiteral("Redo Above Only will be executed. Do you want to continue?")));
    answer(kRun);
    ASSERT_TRUE(waitFor([&] { return !session().aboveVideoURL(); }));
    EXPECT_EQ(checklist(), QStringLiteral(">..."));
}

TEST_F(Panel, StartsOverFromStepFour)
{
    openPanel(4);
    click(item("resetButton"));
    answer(kRun);
    ASSERT_TRUE(waitForStep(1));
    EXPECT_EQ(session().maxReachedStep(), CompositorViewModel::WorkflowStep::step1);
    EXPECT_TRUE(waitFor([&] { return item("lockButton") != nullptr; }));
}

TEST_F(Panel, SwitchesTheWaysToPlay)
{
    openPanel(3);
    click(item("loopButton"));
    EXPECT_FALSE(session().isStep3LoopEnabled());
    EXPECT_FALSE(item("loopButton")->property("isOn").toBool());
    click(item("slowButton"));
    EXPECT_TRUE(session().isStep3SlowPlaybackEnabled());
    EXPECT_TRUE(session().hasInteractedWithStep3Adjustments());
}

TEST_F(Panel, OpensAndClosesTheAdvancedAdjustments)
{
    openPanel(3);
    EXPECT_FALSE(item("Zoom"));
    click(item("advancedDisclosure"));
    ASSERT_TRUE(waitFor([&] { return item("Zoom") && item("Timing") && item("Boundary Blur"); }));
    EXPECT_EQ(session().stepEditHistory().undoCount(), 0u);
    click(item("advancedDisclosure"));
    EXPECT_TRUE(waitFor([&] { return !item("Zoom"); }));
}

TEST_F(Panel, TheAdvancedAdjustmentsAreClosedAgainNextTime)
{
    openPanel(3);
    click(item("advancedDisclosure"));
    ASSERT_TRUE(waitFor([&] { return item("Zoom") != nullptr; }));
    click(item("stepPill4"));
    ASSERT_TRUE(waitFor([&] { return item("exportButton") != nullptr; }));
    click(item("stepPill3"));
    ASSERT_TRUE(waitFor([&] { return item("advancedDisclosure") != nullptr; }));
    EXPECT_FALSE(item("Zoom"));
}

TEST_F(Panel, ResetsTheValuesAfterAQuestion)
{
    openPanel(3);
    session().setAboveZoom(20);
    click(item("resetValuesButton"));
    ASSERT_TRUE(waitFor([&] { return item(kRun) != nullptr; }));
    EXPECT_FALSE(session().hasInteractedWithStep3Adjustments());
    answer(kRun);
    EXPECT_TRUE(waitFor([&] { return session().aboveZoom() == 0; }));
}

TEST_F(Panel, OffersStepFourOnceThereIsAVideo)
{
    openEmptyPanel();
    click(item("stepPill3"));
    ASSERT_TRUE(waitFor([&] { return item("nextStepButton") != nullptr; }));
    EXPECT_FALSE(item("nextStepButton")->isEnabled());
    click(item("nextStepButton"));
    EXPECT_EQ(int(session().currentStep()), 3);
    click(item("stepPill1"));
    loadVideo(Side::above);
    click(item("stepPill3"));
    ASSERT_TRUE(waitFor([&] { return item("nextStepButton") && item("nextStepButton")->isEnabled(); }));
    click(item("nextStepButton"));
    EXPECT_TRUE(waitForStep(4));
}

TEST_F(Panel, SetsTheRangeByItsButtons)
{
    openPanel(4);
    const double end = session().duration();
    EXPECT_TRUE(item("trimEndButton")->property("isDimmed").toBool()); // the playhead stands on the start
    EXPECT_NEAR(item("trimEndButton")->opacity(), 0.45, 1e-6);
    click(item("trimEndButton"));
    EXPECT_EQ(session().trimEndPosition(), end);
    seekTo(1);
    EXPECT_FALSE(item("trimEndButton")->property("isDimmed").toBool());
    click(item("trimEndButton"));
    EXPECT_EQ(session().trimEndPosition(), 1);
    EXPECT_TRUE(item("trimStartButton")->property("isDimmed").toBool());
    click(item("trimStartButton"));
    EXPECT_EQ(session().trimStart(), 0);
    EXPECT_EQ(item("panelExportLength")->property("text").toString(), QStringLiteral("00:01"));
    click(item("resetTrimsButton"));
    EXPECT_EQ(session().trimEndPosition(), end);
    EXPECT_EQ(session().currentTime(), 0);
}

TEST_F(Panel, AddsMarkersAndDeletesThemAllAfterAQuestion)
{
    openPanel(4);
    seekTo(1);
    click(item("addMarkerButton"));
    EXPECT_THAT(session().trimMarkers(), SizeIs(1));
    click(item("clearMarkersButton"));
    answer(kCancel);
    EXPECT_THAT(session().trimMarkers(), SizeIs(1));
    click(item("clearMarkersButton"));
    answer(kRun);
    EXPECT_TRUE(waitFor([&] { return session().trimMarkers().empty(); }));
}

TEST_F(Panel, OpensTheExportSheet)
{
    openPanel(4);
    click(item("exportButton"));
    EXPECT_TRUE(session().showExportSheet());
}

TEST_F(Panel, ShowsTheShortcutsAndHidesThemAgain)
{
    openPanel(3);
    ModalState& modality = SurfaceContext::of(*qmlEngine(&window())).modality();
    const auto isOpen = [&] { return item("shortcutHelp") != nullptr; };
    click(item("shortcutHelpButton"));
    ASSERT_TRUE(waitFor(isOpen));
    EXPECT_FALSE(modality.isOpen()) << "keys belong to the list while it is there";
    EXPECT_TRUE(itemWithText(text("Shortcut Section Adjustment")));
    EXPECT_FALSE(itemWithText(text("Shortcut Section Markers")));
    click(item("shortcutHelpButton"));
    EXPECT_TRUE(waitFor([&] { return !isOpen(); }));
    EXPECT_TRUE(modality.isOpen());
    click(item("shortcutHelpButton"));
    ASSERT_TRUE(waitFor(isOpen));
    press(Qt::Key_Escape);
    EXPECT_TRUE(waitFor([&] { return !isOpen(); }));
    click(item("shortcutHelpButton"));
    ASSERT_TRUE(waitFor(isOpen));
    QTest::mouseClick(&window(), Qt::LeftButton, {}, {200, 300}); // beside it
    EXPECT_TRUE(waitFor([&] { return !isOpen(); }));
}

TEST_F(Panel, TheShortcutsStandBesideTheirButton)
{
    openPanel(4, {1024, 680});
    click(item("shortcutHelpButton"));
    ASSERT_TRUE(waitFor([&] { return item("shortcutHelp") != nullptr; }));
    const QQuickItem* const list = item("shortcutHelp");
    const QRectF place = list->mapRectToScene(QRectF(0, 0, list->width(), list->height()));
    EXPECT_EQ(place.width(), 372);
    EXPECT_EQ(place.right(), 1024 - 390 - 12);
    EXPECT_GE(place.top(), 0);
    EXPECT_LE(place.bottom(), 680);
    EXPECT_TRUE(itemWithText(text("Shortcut Section Markers")));
}

TEST_F(Panel, TheHeaderKeepsCameraAndLanguageAtHand)
{
    openEmptyPanel();
    EXPECT_FALSE(item("saveButton"));
    click(item("openButton"));
    EXPECT_TRUE(session().showOpenProjectPanel());
    dismissFileDialog();
    EXPECT_TRUE(waitFor([&] { return !session().showOpenProjectPanel(); }));
    click(item("languageButton"));
    ASSERT_TRUE(waitFor([&] { return itemWithText(rawValue(AppLanguage::german)) != nullptr; }));
    click(itemWithText(rawValue(AppLanguage::german)));
    EXPECT_EQ(app().languages().currentLanguage(), AppLanguage::german);
    EXPECT_TRUE(waitFor([&] { return itemWithText(text("Step 1: Above Video")) != nullptr; }));
    click(item("cameraButton"));
    EXPECT_TRUE(waitFor([&] { return item("startButton") != nullptr; }));
}

TEST_F(Panel, TheLanguageMenuClosesByItsButton)
{
    openEmptyPanel();
    const auto isOpen = [&] { return itemWithText(rawValue(AppLanguage::german)) != nullptr; };
    click(item("languageButton"));
    ASSERT_TRUE(waitFor(isOpen));
    click(item("languageButton"));
    EXPECT_TRUE(waitFor([&] { return !isOpen(); }));
}

TEST_F(Panel, IsWalkedThroughByTheKeyboardAlone)
{
    openPanel(3, {1024, 680});
    QSet<QString> seen;
    item("stepPill1")->forceActiveFocus(Qt::TabFocusReason);
    for (int i = 0; i < 40; ++i) {
        QQuickItem* const focused = window().activeFocusItem();
        ASSERT_TRUE(focused);
        seen.insert(focused->objectName());
        const bool isOfPanel = item("adjustmentPanel")->isAncestorOf(focused);
        EXPECT_TRUE(waitFor([&] { return !isOfPanel || isInSight(focused); })) << focused->objectName().toStdString();
        press(Qt::Key_Tab);
    }
    for (const char* const name :
         {"saveButton", "openButton", "cameraButton", "languageButton", "stepPill1", "stepPill4", "shortcutHelpButton",
          "loopButton", "slowButton", "Waterline Height field", "advancedDisclosure", "resetValuesButton",
          "nextStepButton", "resetButton"})
        EXPECT_TRUE(seen.contains(QLatin1String(name))) << name;
    item("nextStepButton")->forceActiveFocus(Qt::TabFocusReason);
    press(Qt::Key_Space); // belongs to playback
    EXPECT_EQ(int(session().currentStep()), 3);
    press(Qt::Key_Return);
    EXPECT_TRUE(waitForStep(4));
}

TEST_F(Panel, ScrollsToWhatTheKeyboardComesToAndFadesWhereThereIsMore)
{
    openPanel(3, {1024, 680});
    openAdvanced();
    EXPECT_EQ(scrolled(), 0);
    item("nextStepButton")->forceActiveFocus(Qt::TabFocusReason);
    EXPECT_TRUE(waitFor([&] { return isInSight(item("nextStepButton")); }));
    EXPECT_GT(scrolled(), 0);
    item("saveButton")->forceActiveFocus(Qt::BacktabFocusReason);
    EXPECT_TRUE(waitFor([&] { return scrolled() == 0; }));
}

TEST_F(Panel, ScrollsByTheWheelAndNeverByADraggingMouse)
{
    openPanel(3, {1024, 680});
    openAdvanced();
    const QPoint empty = middleOf(item("adjustmentPanel")) + QPoint(0, -60);
    drag(empty, empty + QPoint(0, -200));
    const QPoint onButton = middleOf(item("loopButton"));
    drag(onButton, onButton + QPoint(0, -100));
    const QPoint onLabel = middleOf(item("advancedDisclosure"));
    drag(onLabel, onLabel + QPoint(0, -100));
    QTest::qWait(100);
    EXPECT_EQ(scrolled(), 0);
    const QPointF place = middleOf(item("adjustmentPanel"));
    QWheelEvent wheel(place, window().mapToGlobal(place), {}, {0, -240}, Qt::NoButton, {}, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&window(), &wheel);
    EXPECT_TRUE(waitFor([&] { return scrolled() > 0; }));
}

TEST_F(Panel, ScrollsByTouch)
{
    openPanel(3, {1024, 680});
    openAdvanced();
    const std::unique_ptr<QPointingDevice> screen(QTest::createTouchDevice());
    const QPoint from = middleOf(item("advancedDisclosure"));
    QTest::touchEvent(&window(), screen.get()).press(0, from, &window());
    for (int i = 1; i <= 20; ++i) {
        QTest::touchEvent(&window(), screen.get()).move(0, from - QPoint(0, 10 * i), &window());
        QTest::qWait(10);
    }
    QTest::touchEvent(&window(), screen.get()).release(0, from - QPoint(0, 200), &window());
    EXPECT_TRUE(waitFor([&] { return scrolled() > 0; }));
    EXPECT_TRUE(item("Zoom")) << "what the finger came down on was not pressed";
}

TEST_F(Panel, AFieldThatIsTypedInLosesTheFocusBeforeItsStepGoes)
{
    openPanel(3);
    TextFieldFocusTracker& focus = SurfaceContext::of(*qmlEngine(&window())).fieldFocus();
    item("Waterline Height field")->forceActiveFocus(Qt::TabFocusReason);
    EXPECT_EQ(focus.focusCount(), 1);
    session().setCurrentStep(CompositorViewModel::WorkflowStep::step4);
    ASSERT_TRUE(waitFor([&] { return item("exportButton") != nullptr; }));
    EXPECT_EQ(focus.focusCount(), 0);
    item("Trim Start field")->forceActiveFocus(Qt::TabFocusReason);
    EXPECT_EQ(focus.focusCount(), 1);
    session().setFullScreen(true);
    ASSERT_TRUE(waitFor([&] { return item("adjustmentPanel") == nullptr; }));
    EXPECT_EQ(focus.focusCount(), 0);
}

TEST_F(Panel, GermanButtonsTakeTwoLines)
{
    openPanel(4, {1024, 680});
    app().languages().setLanguage(AppLanguage::german);
    QQuickItem* label = nullptr;
    ASSERT_TRUE(waitFor([&] { return (label = itemWithText(text("Start to Selected Marker"))) != nullptr; }));
    EXPECT_TRUE(waitFor([&] { return label->property("lineCount").toInt() == 2; }));
    EXPECT_EQ(item("trimStartButton")->height(), item("trimEndButton")->height());
    EXPECT_LE(label->height(), item("trimStartButton")->height());
}

}
}
