// SPDX-License-Identifier: GPL-3.0-or-later
#include "journeys/window/WindowJourney.h"

namespace zumeta {
namespace {

using namespace test;

struct StartScreen : WindowJourney {
    QString text(const char* key) { return app().languages().localized(QString::fromLatin1(key)); }
    Task<> ask(int& answer, bool isDestructive = false)
    {
        Alert alert;
        alert.title = QStringLiteral("File Already Exists");
        alert.message = QStringLiteral("A file with the same name already exists. Do you want to replace it?");
        alert.buttons = {QStringLiteral("Replace"), QStringLiteral("Cancel")};
        alert.isDestructive = isDestructive;
        answer = co_await app().dialogs().showAlert(std::move(alert));
    }
};

TEST_F(StartScreen, AsksForTheCameraAndGoesOn)
{
    open();
    EXPECT_TRUE(itemWithText(QStringLiteral("Select Camera")));
    EXPECT_EQ(app().session().selectedCamera(), CameraType::gopro);
    click(itemWithText(QStringLiteral("Insta360")));
    EXPECT_EQ(app().session().selectedCamera(), CameraType::insta360);
    click(itemWithText(QStringLiteral("GoPro / Osmo")));
    EXPECT_EQ(app().session().selectedCamera(), CameraType::gopro);
    EXPECT_FALSE(app().session().isCameraSelectionConfirmed());
    click(item("startButton"));
    EXPECT_TRUE(app().session().isCameraSelectionConfirmed());
    EXPECT_TRUE(waitFor([&] { return !item("startButton"); }));
}

TEST_F(StartScreen, LeadsToAStepThatShowsTheWholeOfItsVideo)
{
    open();
    click(item("startButton"));
    EXPECT_EQ(app().session().viewMode(), CompositorViewModel::ViewMode::aboveOnly);
    EXPECT_EQ(app().session().currentStep(), CompositorViewModel::WorkflowStep::step1);
}

TEST_F(StartScreen, LeavesLaterStepsAloneWhenTheCameraIsChanged)
{
    openStep(3);
    app().session().setRelativeWaterlineHeight(20);
    app().session().setCameraSelectionConfirmed(false);
    ASSERT_TRUE(waitFor([&] { return item("startButton") != nullptr; }));
    click(itemWithText(QStringLiteral("Insta360")));
    click(item("startButton"));
    EXPECT_EQ(app().session().currentStep(), CompositorViewModel::WorkflowStep::step3);
    EXPECT_EQ(app().session().viewMode(), CompositorViewModel::ViewMode::split);
    EXPECT_NEAR(app().session().relativeWaterlineHeight(), 20, 1e-9);
}

TEST_F(StartScreen, IsWalkedThroughByTheKeyboardAlone)
{
    open();
    press(Qt::Key_Tab);
    press(Qt::Key_Tab);
    press(Qt::Key_Return); // the second camera
    EXPECT_EQ(app().session().selectedCamera(), CameraType::insta360);
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    press(Qt::Key_Return);
    EXPECT_EQ(app().session().selectedCamera(), CameraType::gopro);
    press(Qt::Key_Tab);
    press(Qt::Key_Tab);
    press(Qt::Key_Space); // belongs to playback, not to buttons
    EXPECT_FALSE(app().session().isCameraSelectionConfirmed());
    press(Qt::Key_Enter);
    EXPECT_TRUE(app().session().isCameraSelectionConfirmed());
}

TEST_F(StartScreen, ChangesItsLanguageAtOnceAndRemembersIt)
{
    open();
    click(item("languagePicker"));
    QQuickItem* japanese = nullptr;
    ASSERT_TRUE(waitFor([&] { return (japanese = itemWithText(rawValue(AppLanguage::japanese))) != nullptr; }));
    expectPicture("language-menu");
    click(japanese);
    EXPECT_EQ(app().languages().currentLanguage(), AppLanguage::japanese);
    EXPECT_TRUE(waitFor([&] { return itemWithText(text("Start")) != nullptr; }));
    EXPECT_NE(text("Start"), QStringLiteral("Start"));
    close();
    open();
    EXPECT_TRUE(itemWithText(text("Select Camera")));
    EXPECT_EQ(app().languages().currentLanguage(), AppLanguage::japanese);
}

TEST_F(StartScreen, LeavesTheLanguageMenuByEscapeOrAPressBesideIt)
{
    open();
    for (const bool byKey : {true, false}) {
        click(item("languagePicker"));
        ASSERT_TRUE(waitFor([&] { return itemWithText(rawValue(AppLanguage::italian)) != nullptr; }));
        if (byKey)
            press(Qt::Key_Escape);
        else
            click(itemWithText(QStringLiteral("Zumeta")));
        EXPECT_TRUE(waitFor([&] { return itemWithText(rawValue(AppLanguage::italian)) == nullptr; }));
    }
    EXPECT_TRUE(app().languages().usesSystemLanguage());
}

TEST_F(StartScreen, ChoosesALanguageByTheKeyboard)
{
    open();
    for (int i = 0; i < 4; ++i)
        press(Qt::Key_Tab);
    press(Qt::Key_Return);
    ASSERT_TRUE(waitFor([&] { return itemWithText(rawValue(AppLanguage::german)) != nullptr; }));
    for (int i = 0; i < 8; ++i)
        press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_EQ(app().languages().currentLanguage(), AppLanguage::german);
    EXPECT_TRUE(waitFor([&] { return itemWithText(text("Select Camera")) != nullptr; }));
}

TEST_F(StartScreen, LooksAsItWasDrawn)
{
    open({1400, 900});
    expectPicture("start-1400x900");
    window().resize(1024, 680);
    ASSERT_TRUE(waitFor([&] { return window().contentItem()->width() == 1024; }));
    expectPicture("start-1024x680");
    app().languages().setLanguage(AppLanguage::japanese);
    expectPicture("start-1024x680-japanese");
}

TEST_F(StartScreen, ShowsAQuestionAboveEverything)
{
    open();
    int answer = -1;
    ask(answer);
    ASSERT_TRUE(waitFor([&] { return item("alertButton1") != nullptr; }));
    expectPicture("alert");
    press(Qt::Key_Escape);
    EXPECT_TRUE(waitFor([&] { return answer == 1; }));
    ask(answer);
    ASSERT_TRUE(waitFor([&] { return item("alertButton0") && item("alertButton0")->hasActiveFocus(); }));
    click(itemWithText(QStringLiteral("Select Camera"))); // beside the card: nothing
    EXPECT_TRUE(item("alertButton0"));
    press(Qt::Key_Return);
    EXPECT_TRUE(waitFor([&] { return answer == 0; }));
}

TEST_F(StartScreen, DoesNotTakeAwayAnythingByAHastyReturn)
{
    open();
    int answer = -1;
    ask(answer, true);
    ASSERT_TRUE(waitFor([&] { return item("alertButton1") && item("alertButton1")->hasActiveFocus(); }));
    expectPicture("alert-destructive");
    press(Qt::Key_Return);
    EXPECT_TRUE(waitFor([&] { return answer == 1; }));
    ask(answer, true);
    ASSERT_TRUE(waitFor([&] { return item("alertButton1") && item("alertButton1")->hasActiveFocus(); }));
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    press(Qt::Key_Return);
    EXPECT_TRUE(waitFor([&] { return answer == 0; }));
}

TEST_F(StartScreen, LeadsToEachStepOfTheWorkplace)
{
    for (const int step : {1, 2, 3, 4}) {
        openStep(step);
        EXPECT_EQ(int(app().session().currentStep()), step);
        EXPECT_FALSE(item("startButton"));
        close();
    }
}

}
}
