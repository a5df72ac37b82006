// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/DelegateScene.h"

#include <QTimer>
#include <gmock/gmock.h>

namespace zumeta {
namespace {

using namespace test;

struct EndOfTheDesktopsSession : DelegateScene {
    bool allowsInteraction = true;
    QStringList said; ///< to the desktop

    EndOfTheDesktopsSession()
    {
        delegate.applicationDidFinishLaunching(window);
        delegate.showWindow();
    }
    void startExport()
    {
        enterComposite(WorkflowStep::step4, {20, 5}, {18, 3});
        dialogs.savePlace = FileUrl("/nowhere/swim.mp4");
        session->exportVideo(false);
        advance(4);
        ASSERT_TRUE(session->isExporting());
    }
    void commit()
    {
        delegate.commitSession({[this] {
                                    said << QStringLiteral("may I ask?");
                                    return allowsInteraction;
                                },
                                [this] { said << QStringLiteral("asked"); },
                                [this] { said << QStringLiteral("stay"); }});
    }
    /// Once the event loop turns.
    void answerSoon(int button)
    {
        QTimer::singleShot(0, &alerts, [this, button] { alerts.answer(button); });
    }
};

TEST_F(EndOfTheDesktopsSession, WithoutAnExportGoesOnAtOnce)
{
    commit();
    EXPECT_TRUE(said.empty());
    EXPECT_FALSE(alerts.isOpen());
}

TEST_F(EndOfTheDesktopsSession, WaitsForTheAnswerWhileAMovieIsBeingMade)
{
    startExport();
    answerSoon(0);
    commit();
    EXPECT_THAT(said, testing::ElementsAre(QStringLiteral("may I ask?"), QStringLiteral("asked")));
    EXPECT_TRUE(exporters.back()->isCancelled());
    EXPECT_TRUE(window.isVisible()) << "another application may still keep the user here";
    EXPECT_TRUE(window.close());
    EXPECT_FALSE(alerts.isOpen());
}

TEST_F(EndOfTheDesktopsSession, IsStoppedByWhoeverWantsTheMovie)
{
    startExport();
    answerSoon(1);
    commit();
    EXPECT_THAT(said,
                testing::ElementsAre(QStringLiteral("may I ask?"), QStringLiteral("asked"), QStringLiteral("stay")));
    EXPECT_TRUE(session->isExporting());
}

TEST_F(EndOfTheDesktopsSession, IsNotHeldUpByAMovieThatIsFinishedMeanwhile)
{
    startExport();
    QTimer::singleShot(0, &alerts, [this] { advance(20); });
    commit();
    EXPECT_THAT(said, testing::ElementsAre(QStringLiteral("may I ask?"), QStringLiteral("asked")));
    EXPECT_FALSE(exporters.back()->isCancelled());
}

TEST_F(EndOfTheDesktopsSession, ThatAllowsNoQuestionHearsNone)
{
    startExport();
    allowsInteraction = false;
    commit();
    EXPECT_THAT(said, testing::ElementsAre(QStringLiteral("may I ask?")));
    EXPECT_FALSE(alerts.isOpen());
    EXPECT_TRUE(session->isExporting());
}

TEST_F(EndOfTheDesktopsSession, SharesTheQuestionThatStandsAlready)
{
    startExport();
    EXPECT_FALSE(window.close());
    answerSoon(1);
    commit();
    EXPECT_FALSE(alerts.isOpen());
    EXPECT_TRUE(said.contains(QStringLiteral("stay")));
    EXPECT_TRUE(window.isVisible());
}

}
}
