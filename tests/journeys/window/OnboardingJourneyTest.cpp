// SPDX-License-Identifier: GPL-3.0-or-later
#include "journeys/window/OnboardingJourney.h"

namespace zumeta {
namespace {

using namespace test;

constexpr int kHelp = 4;
constexpr int kShowGuide = 3;

struct Onboarding : OnboardingJourney {
    bool isStoredAsSeen() const
    {
        return SettingsFile(SettingsFile::defaultPath()).boolean(kHasSeenFirstRunOnboardingKey).value_or(false);
    }
    void chooseInHelpMenu(int row)
    {
        click(item(qPrintable(QStringLiteral("menuTitle%1").arg(kHelp))));
        ASSERT_TRUE(waitFor([&] { return item("openMenu") != nullptr; }));
        click(item(qPrintable(QStringLiteral("menuItem%1").arg(row))));
        ASSERT_TRUE(waitFor([&] { return !item("openMenu"); }));
    }
    bool isHovered(const char* name) { return item(name)->property("hovered").toBool(); }
    /// Around a part of the window, with some room.
    void expectHoleAround(const char* name, size_t index = 0)
    {
        const QRectF part = placeOf(item(name));
        EXPECT_TRUE(hole(index).contains(part)) << name;
        EXPECT_LE(hole(index).width(), part.width() + 40) << name;
    }
};

TEST_F(Onboarding, BeginsBehindTheStartScreen)
{
    beNewcomer();
    open();
    EXPECT_FALSE(item("onboardingOverlay"));
    click(item("startButton"));
    EXPECT_TRUE(waitForCard("Tutorial Above Drop Title"));
    expectHoleAround("dropInstructionCard");
}

TEST_F(Onboarding, PointsAtTheControlOfEachCard)
{
    constexpr std::array kControls{"dropInstructionCard", "simpleSlider",        "lockButton",     "",
                                   "nextStepButton",      "dropInstructionCard", "nextStepButton", "Person Height",
                                   "nextStepButton",      "Trim Start",          "exportButton"};
    for (const Card card : kAllCards) {
        ASSERT_NO_FATAL_FAILURE(openAt(card, {1400, 900}));
        const std::string control = kControls[size_t(card)];
        if (control.empty())
            EXPECT_EQ(hole().size(), item("previewSurface")->property("frame").toRectF().size());
        else
            EXPECT_TRUE(hole().contains(placeOf(item(control.c_str())))) << control;
        if (card == Card::step3)
            expectHoleAround("nextStepButton", 1);
        if (card == Card::step4)
            expectHoleAround("exportButton", 1);
        close();
    }
}

TEST_F(Onboarding, LetsAPressThroughItsHole)
{
    openAt(Card::lock, {1400, 900});
    click(item("lockButton"));
    EXPECT_TRUE(session().manualSyncTimeAbove());
    EXPECT_TRUE(waitForCard("Tutorial Preview Title"));
    const QRectF picture = placeOf(item("previewSurface"));
    QTest::mouseClick(&window(), Qt::LeftButton, {}, picture.center().toPoint());
    EXPECT_TRUE(waitForCard("Tutorial Next Step Title"));
    click(item("nextStepButton"));
    EXPECT_TRUE(waitForCard("Tutorial Below Drop Title"));
}

TEST_F(Onboarding, TakesAPressBesideItsHoleAndGoesAway)
{
    openAt(Card::lock, {1400, 900});
    click(item("resetButton"));
    EXPECT_TRUE(waitForNoCard());
    EXPECT_FALSE(item("alertButton0"));
    EXPECT_FALSE(isStoredAsSeen());
    click(item("resetButton"));
    EXPECT_TRUE(waitFor([&] { return item("alertButton0") != nullptr; }));
}

TEST_F(Onboarding, HasTheUsualPointerOverWhatIsDimmed)
{
    openAt(Card::lock, {1400, 900});
    movePointer({700, 300}); // from wherever it was before there was a guide
    movePointer(middleOf(item("resetButton")));
    QTest::qWait(50);
    EXPECT_EQ(window().cursor().shape(), Qt::ArrowCursor);
    movePointer(middleOf(item("lockButton")));
    EXPECT_TRUE(waitFor([&] { return isHovered("lockButton"); }));
    EXPECT_EQ(window().cursor().shape(), Qt::PointingHandCursor);
}

TEST_F(Onboarding, APressOnACardIsNoPressBesideIt)
{
    openAt(Card::lock, {1400, 900});
    QTest::mouseClick(&window(), Qt::LeftButton, {}, middleOf(item("onboardingCard")));
    QTest::qWait(50);
    EXPECT_TRUE(isShown("Tutorial Lock Title"));
}

TEST_F(Onboarding, StaysWithTheSliderWhileItIsDraggedAndLetsItBeMendedAfterwards)
{
    openAt(Card::slider, {1400, 900});
    const auto drag = [&](int from, int to) {
        const QPoint middle = middleOf(item("simpleSlider")); // the strip shrinks once its hint is gone
        QTest::mousePress(&window(), Qt::LeftButton, {}, middle + QPoint(from, 0));
        QTest::mouseMove(&window(), middle + QPoint(to, 0));
        EXPECT_TRUE(waitForCard("Tutorial Timeline Title"));
        QTest::mouseRelease(&window(), Qt::LeftButton, {}, middle + QPoint(to, 0));
        EXPECT_TRUE(waitForCard("Tutorial Lock Title"));
        EXPECT_TRUE(waitForRest());
    };
    drag(-100, 200);
    const double wrong = session().currentTime();
    drag(200, 0);
    EXPECT_LT(session().currentTime(), wrong);
}

TEST_F(Onboarding, IsWavedAwayByItsButtonAndDoesNotComeBack)
{
    openAt(Card::slider, {1400, 900});
    click(item("onboardingCardOk"));
    EXPECT_TRUE(waitForNoCard());
    session().setTimelineSliderDragging(true);
    session().setTimelineSliderDragging(false);
    QTest::qWait(100);
    EXPECT_FALSE(item("onboardingOverlay"));
    session().setHasSliderBeenMoved(true);
    EXPECT_TRUE(waitForCard("Tutorial Lock Title"));
}

TEST_F(Onboarding, ThatIsSkippedIsNotThereAfterARestart)
{
    openAsNewcomer();
    click(item("onboardingCardSkip"));
    EXPECT_TRUE(waitForNoCard());
    close();
    open();
    click(item("startButton"));
    ASSERT_TRUE(waitFor([&] { return item("dropInstructionCard") != nullptr; }));
    QTest::qWait(100);
    EXPECT_FALSE(item("onboardingOverlay"));
    EXPECT_TRUE(isStoredAsSeen());
}

TEST_F(Onboarding, ThatWasOnlyWavedAwayIsThereAfterARestart)
{
    openAsNewcomer();
    click(item("onboardingCardOk"));
    EXPECT_TRUE(waitForNoCard());
    close();
    open();
    click(item("startButton"));
    EXPECT_TRUE(waitForCard("Tutorial Above Drop Title"));
}

TEST_F(Onboarding, IsShownAgainByTheHelpMenu)
{
    openEmptyPanel();
    EXPECT_FALSE(item("onboardingOverlay"));
    chooseInHelpMenu(kShowGuide);
    EXPECT_TRUE(waitForCard("Tutorial Above Drop Title"));
    click(item("onboardingCardOk"));
    EXPECT_TRUE(waitForNoCard());
    chooseInHelpMenu(kShowGuide);
    EXPECT_TRUE(waitForCard("Tutorial Above Drop Title"));
    EXPECT_FALSE(isStoredAsSeen());
}

TEST_F(Onboarding, StandsUnderTheMenusAndSheets)
{
    openAt(Card::step4, {1400, 900});
    click(item("exportButton"));
    ASSERT_TRUE(waitFor([&] { return item("exportSheetCancel") != nullptr; }));
    click(item("exportSheetCancel"));
    EXPECT_TRUE(waitFor([&] { return !item("exportSheetCancel"); }));
    EXPECT_TRUE(isShown("Tutorial Step 4 Trim Title"));
    chooseInHelpMenu(kShowGuide);
    EXPECT_TRUE(isShown("Tutorial Step 4 Trim Title"));
}

TEST_F(Onboarding, MovesWithTheWindowsSize)
{
    openAt(Card::lock, {1400, 900});
    const QRectF before = hole();
    window().resize(1024, 680);
    ASSERT_TRUE(waitFor([&] { return hole().left() == before.left() - 376; }));
    expectHoleAround("lockButton");
    EXPECT_TRUE(QRectF(0, 0, 1024, 680).contains(placeOf(item("onboardingCard"))));
}

TEST_F(Onboarding, BringsItsControlIntoSightFirst)
{
    openAt(Card::step3, {1024, 680});
    click(item("advancedDisclosure"));
    ASSERT_TRUE(waitFor([&] { return item("Zoom") && !isInSight(item("nextStepButton")); }));
    session().beginStep3Adjustment();
    ASSERT_TRUE(waitForCard("Tutorial Step 3 Next Step Title"));
    EXPECT_TRUE(waitFor([&] { return isInSight(item("nextStepButton")); }));
    expectHoleAround("nextStepButton");
    click(item("nextStepButton"));
    EXPECT_TRUE(waitForStep(4));
}

TEST_F(Onboarding, HoldsItsHoleToAPanelThatScrolls)
{
    openAt(Card::step3, {1024, 680});
    click(item("advancedDisclosure"));
    ASSERT_TRUE(waitFor([&] { return item("Zoom") != nullptr; }));
    ASSERT_TRUE(waitFor([&] { return guide().spotlight().targets.size() == 1; })); // the button is out of sight
    const QPoint inPanel = middleOf(item("Person Height"));
    for (int i = 0; i < 10; ++i) {
        QWheelEvent turn(inPanel, window().mapToGlobal(inPanel), {}, {0, -240}, {}, {}, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&window(), &turn);
        QTest::qWait(30);
    }
    ASSERT_TRUE(waitFor([&] { return guide().spotlight().targets.size() == 2; }));
    EXPECT_GT(scrolled(), 0);
    EXPECT_TRUE(waitFor([&] { return hole(1).contains(placeOf(item("nextStepButton"))); }));
}

TEST_F(Onboarding, RestsInTheFullScreenPreview)
{
    openAt(Card::step3, {1400, 900});
    session().setFullScreen(true);
    EXPECT_TRUE(waitForNoCard());
    session().setFullScreen(false);
    EXPECT_TRUE(waitForCard("Tutorial Step 3 Adjustments Title"));
}

TEST_F(Onboarding, IsWavedAwayByTheKeyboardAlone)
{
    openAsNewcomer();
    press(Qt::Key_Tab);
    ASSERT_TRUE(item("onboardingCardOk")->hasActiveFocus());
    press(Qt::Key_Tab);
    ASSERT_TRUE(item("onboardingCardSkip")->hasActiveFocus());
    press(Qt::Key_Tab);
    EXPECT_FALSE(item("onboardingCardSkip")->hasActiveFocus()); // goes on to the window
    press(Qt::Key_Backtab);
    press(Qt::Key_Backtab);
    press(Qt::Key_Return);
    EXPECT_TRUE(waitForNoCard());
    EXPECT_FALSE(isStoredAsSeen());
}

TEST_F(Onboarding, IsWavedAwayByEscapeOnceTheKeyboardIsOnIt)
{
    openAsNewcomer();
    press(Qt::Key_Tab);
    press(Qt::Key_Escape);
    EXPECT_TRUE(waitForNoCard());
}

TEST_F(Onboarding, LeavesTheShortcutsAlone)
{
    openAt(Card::step3, {1400, 900});
    press(Qt::Key_Right);
    EXPECT_TRUE(waitForCard("Tutorial Step 3 Next Step Title")); // a frame's step counts as taking part
}

}
}
