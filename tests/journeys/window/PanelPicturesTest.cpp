// SPDX-License-Identifier: GPL-3.0-or-later
#include "journeys/window/LayoutWalk.h"
#include "journeys/window/PanelJourney.h"

namespace zumeta {
namespace {

using namespace test;

struct PanelPictures : PanelJourney {
    void expectPanel(const char* name, const char* part)
    {
        ASSERT_TRUE(waitFor([&] { return item(part) && item("stepView")->property("isAtRest").toBool(); }));
        movePointer({500, 450});
        // Drawn anew and whole: what has faded in leaves letters that the software renderer has drawn upon themselves.
        QQuickItem* const panel = item("adjustmentPanel");
        panel->setVisible(false);
        picture();
        panel->setVisible(true);
        expectPicture(name, panel);
    }
    void speak(AppLanguage language) { app().languages().setLanguage(language); }
};

TEST_F(PanelPictures, OfStepOne)
{
    openEmptyPanel();
    expectPanel("panel-step1-empty", "lockButton");
    loadVideo(Side::above);
    seekTo(1);
    expectPanel("panel-step1-lock", "lockButton");
    session().toggleAboveLock();
    session().onPickWaterline(0.5);
    expectPanel("panel-step1-done", "nextStepButton");
    speak(AppLanguage::german);
    expectPanel("panel-step1-german", "nextStepButton");
}

TEST_F(PanelPictures, OfStepTwo)
{
    openPanel(2);
    // The load's own end may still come, and takes a lock with it.
    ASSERT_TRUE(waitFor([&] {
        if (session().manualSyncTimeBelow() || session().alignmentPointBelow())
            session().toggleBelowLock();
        seekTo(1);
        return !session().manualSyncTimeBelow() && !session().alignmentPointBelow() && session().currentTime() == 1;
    }));
    expectPanel("panel-step2", "lockButton");
    speak(AppLanguage::japanese);
    expectPanel("panel-step2-japanese", "lockButton");
}

TEST_F(PanelPictures, OfStepThree)
{
    openPanel(3);
    expectPanel("panel-step3", "advancedDisclosure");
    speak(AppLanguage::german);
    expectPanel("panel-step3-german", "advancedDisclosure");
    speak(AppLanguage::japanese);
    click(item("advancedDisclosure"));
    expectPanel("panel-step3-advanced-japanese", "Zoom");
}

TEST_F(PanelPictures, OfStepFour)
{
    openPanel(4);
    seekTo(1);
    expectPanel("panel-step4", "exportButton");
    seekTo(0);
    speak(AppLanguage::german);
    expectPanel("panel-step4-german", "exportButton");
    speak(AppLanguage::japanese);
    expectPanel("panel-step4-japanese", "exportButton");
}

TEST_F(PanelPictures, OfASmallWindow)
{
    openPanel(3, {1024, 680});
    click(item("advancedDisclosure"));
    expectPanel("panel-step3-small", "Zoom");
}

TEST_F(PanelPictures, OfTheShortcuts)
{
    openPanel(3);
    click(item("shortcutHelpButton"));
    ASSERT_TRUE(waitFor([&] { return item("shortcutHelp") != nullptr; }));
    movePointer({300, 850});
    expectPicture("shortcuts-step3");
    close();
    openPanel(4, {1024, 680});
    speak(AppLanguage::german);
    click(item("shortcutHelpButton"));
    ASSERT_TRUE(waitFor([&] { return item("shortcutHelp") != nullptr; }));
    movePointer({300, 650});
    expectPicture("shortcuts-step4-german");
}

/// What the panel opens and shows beyond the steps themselves, in every language.
struct PanelLayout : PanelJourney {
    void expectNoFaults(const char* state)
    {
        for (const AppLanguage language : kAllAppLanguages) {
            app().languages().setLanguage(language);
            QStringList faults;
            // What was just relabelled is laid out in the next frames.
            waitFor(
                [&] {
                    QTest::qWait(20);
                    faults = layoutFaults(window());
                    return faults.isEmpty();
                },
                600);
            EXPECT_EQ(faults.join(u'\n').toStdString(), "") << state << " in " << rawValue(language).toStdString();
        }
    }
};

TEST_F(PanelLayout, OfTheAdvancedAdjustmentsHoldsInEveryLanguage)
{
    for (const QSize size : {QSize(1024, 680), QSize(1400, 900)}) {
        openPanel(3, size);
        click(item("advancedDisclosure"));
        ASSERT_TRUE(waitFor([&] { return item("Zoom") != nullptr; }));
        expectNoFaults("advanced adjustments");
        close();
    }
}

TEST_F(PanelLayout, OfTheShortcutsHoldsInEveryLanguage)
{
    for (const int step : {3, 4}) {
        openPanel(step, {1024, 680});
        click(item("shortcutHelpButton"));
        ASSERT_TRUE(waitFor([&] { return item("shortcutHelp") != nullptr; }));
        expectNoFaults("shortcuts");
        close();
    }
}

TEST_F(PanelLayout, OfTheEmptyStepsHoldsInEveryLanguage)
{
    openEmptyPanel({1024, 680});
    for (const int step : {1, 2, 3, 4}) {
        session().setCurrentStep(CompositorViewModel::WorkflowStep(step));
        ASSERT_TRUE(waitFor([&] { return item("resetButton") != nullptr; }));
        expectNoFaults(("empty step " + std::to_string(step)).c_str());
    }
}

TEST_F(PanelLayout, OfTheQuestionsHoldsInEveryLanguage)
{
    openPanel(4, {1024, 680});
    for (const AppLanguage language : kAllAppLanguages) {
        app().languages().setLanguage(language);
        for (const char* const button : {"clearMarkersButton", "resetButton"}) {
            click(item(button));
            ASSERT_TRUE(waitFor([&] { return item("alertButton1") != nullptr; }));
            waitFor([&] { return layoutFaults(window()).isEmpty(); }); // once it stands
            EXPECT_EQ(layoutFaults(window()).join(u'\n').toStdString(), "")
                << button << " in " << rawValue(language).toStdString();
            answer("alertButton1");
        }
    }
}

}
}
