// SPDX-License-Identifier: GPL-3.0-or-later
// The window is closed while a movie is being made.
#include "journeys/window/ExportScene.h"
#include "journeys/window/LayoutWalk.h"
#include "shell/AppDelegate.h"

#include <QFileDialog>
#include <QLineEdit>
#include <QTest>

namespace zumeta {
namespace {

using namespace test;
using testing::ElementsAre;
using testing::IsEmpty;

/// With real exports, whose files lie in a folder.
struct ClosingTheWindow : WindowJourney {
    TemporaryFolder folder;

    CompositorViewModel& session() { return app().session(); }
    /// In the biggest size, which takes long enough to be met on its way.
    void startExport()
    {
        openStep(4);
        session().setSelectedResolution(ExportResolutionType::uhd4k);
        session().exportVideo(false);
        ASSERT_TRUE(waitFor([] { return fileDialog() != nullptr; }));
        fileDialog()->findChild<QLineEdit*>()->setText(QString::fromStdString(folder.file("swim.mp4").native()));
        static_cast<QDialog*>(fileDialog())->accept();
        ASSERT_TRUE(waitFor([&] { return session().isExporting() && !folder.names().empty(); }, 10000));
        window().requestActivate(); // as a desktop does
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
    }
    /// The question is there, and a hasty Return would change nothing.
    void expectQuestion()
    {
        EXPECT_TRUE(waitFor([&] { return item("alertButton1") && item("alertButton1")->hasActiveFocus(); }));
        EXPECT_TRUE(itemWithText(QStringLiteral("Quit Zumeta?")));
        EXPECT_TRUE(window().isVisible());
    }
    void expectNoQuestion()
    {
        EXPECT_TRUE(waitFor([&] { return !app().modality().gate().isAlertOpen; }));
    }
};

TEST_F(ClosingTheWindow, AsksNothingWithoutAnExport)
{
    openStep(4); // and not kept
    press(Qt::Key_Q, Qt::ControlModifier);
    EXPECT_FALSE(window().isVisible());
}

TEST_F(ClosingTheWindow, IsAskedAboutByEachOfItsWaysAndCancelGoesOn)
{
    startExport();
    const std::vector<std::function<void()>> ways{[&] { press(Qt::Key_W, Qt::ControlModifier); },
                                                  [&] { press(Qt::Key_Q, Qt::ControlModifier); },
                                                  [&] { window().close(); }};
    for (const auto& way : ways) {
        way();
        expectQuestion();
        press(Qt::Key_Return);
        expectNoQuestion();
        EXPECT_TRUE(session().isExporting());
    }
    window().close();
    expectQuestion();
    press(Qt::Key_Escape);
    expectNoQuestion();
    EXPECT_TRUE(session().isExporting());
    session().cancelExport();
}

TEST_F(ClosingTheWindow, IsAskedAboutOnceHoweverOftenItIsWished)
{
    startExport();
    press(Qt::Key_Q, Qt::ControlModifier);
    press(Qt::Key_Q, Qt::ControlModifier);
    window().close();
    expectQuestion();
    press(Qt::Key_Return);
    expectNoQuestion();
    session().cancelExport();
}

TEST_F(ClosingTheWindow, QuitGivesTheExportUpAndLeavesNoFile)
{
    startExport();
    press(Qt::Key_Q, Qt::ControlModifier);
    expectQuestion();
    click(item("alertButton0"));
    EXPECT_TRUE(waitFor([&] { return !window().isVisible(); }));
    EXPECT_FALSE(session().isExporting());
    close();
    EXPECT_THAT(folder.names(), IsEmpty()) << "the application waits until that is tidied up";
}

TEST_F(ClosingTheWindow, ShowsItsQuestionInAWindowThatWasMinimised)
{
    startExport();
    window().showMinimized();
    window().close(); // as from the desktop's list of windows
    EXPECT_TRUE(waitFor([&] { return !window().windowStates().testFlag(Qt::WindowMinimized); }));
    expectQuestion();
    session().cancelExport();
}

TEST_F(ClosingTheWindow, WithoutBeingAskedEndsTheExportToo)
{
    startExport();
    press(Qt::Key_Q, Qt::ControlModifier);
    expectQuestion(); // still unanswered
    app().terminate();
    close();
    EXPECT_THAT(folder.names(), IsEmpty());
}

/// In virtual time, so that the export stands still behind the question.
struct QuitQuestion : ExportScene {
    std::unique_ptr<AppDelegate> delegate;

    void ask(QSize size)
    {
        openScene(size);
        delegate = std::make_unique<AppDelegate>(*surfaces);
        delegate->applicationDidFinishLaunching(window());
        exportUpTo(0.4);
        window().close();
        ASSERT_TRUE(waitFor([&] { return item("alertButton1") && item("alertButton1")->hasActiveFocus(); }));
    }
    void answer()
    {
        press(Qt::Key_Return);
        ASSERT_TRUE(waitFor([&] { return !modality.gate().isAlertOpen; }));
    }
};

TEST_F(QuitQuestion, LooksAsItWasDrawn)
{
    ask({1400, 900});
    expectPicture("quit-1400");
    answer();
    // Its words are those of the moment at which it is asked.
    languages.setLanguage(AppLanguage::japanese);
    window().resize({1024, 680});
    window().close();
    ASSERT_TRUE(waitFor([&] { return item("alertButton1") != nullptr; }));
    expectPicture("quit-1024-japanese");
    answer();
}

TEST_F(QuitQuestion, FitsInEveryLanguage)
{
    ask({1024, 680});
    answer();
    for (const AppLanguage language : kAllAppLanguages) {
        languages.setLanguage(language);
        window().close();
        ASSERT_TRUE(waitFor([&] { return item("alertButton1") != nullptr; }));
        QStringList faults;
        waitFor([&] {
            QTest::qWait(20);
            faults = layoutFaults(window());
            return faults.isEmpty();
        });
        EXPECT_THAT(faults, IsEmpty()) << rawValue(language).toStdString();
        answer();
    }
}

TEST_F(QuitQuestion, GoesWhenTheMovieIsFinishedAndTheWindowStays)
{
    ask({1400, 900});
    advance(10);
    EXPECT_TRUE(waitFor([&] { return !item("alertButton1"); }));
    EXPECT_TRUE(window().isVisible());
    ASSERT_TRUE(harness.session->exportNotification());
    EXPECT_FALSE(harness.session->exportNotification()->isError);
    window().close();
    EXPECT_FALSE(window().isVisible());
}

}
}
