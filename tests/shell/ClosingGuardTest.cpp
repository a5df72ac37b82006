// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/ClosingGuard.h"

#include "session/SessionHarness.h"
#include "surfaces/window/AlertQueue.h"

#include <QCoreApplication>
#include <gmock/gmock.h>

namespace zumeta {
namespace {

using namespace test;

struct Closing : SessionTest {
    AlertQueue alerts{nullptr};
    ClosingGuard guard{*session, alerts, [this](const QString& key) { return localized(key); }};
    int confirmed = 0;
    int declined = 0;

    Closing()
    {
        QObject::connect(&guard, &ClosingGuard::confirmed, [this] { ++confirmed; });
        QObject::connect(&guard, &ClosingGuard::declined, [this] { ++declined; });
    }
    /// Ten seconds long; this many of them have gone by.
    void exportFor(double seconds)
    {
        enterComposite(WorkflowStep::step4, {20, 5}, {18, 3});
        dialogs.savePlace = FileUrl("/nowhere/swim.mp4");
        session->exportVideo(false);
        advance(1.1001 + seconds); // the panel's second, and the look at the disk
        ASSERT_TRUE(session->isExporting());
    }
    void answer(int button)
    {
        alerts.answer(button);
        QCoreApplication::processEvents();
    }
};

TEST_F(Closing, WithoutAnExportNothingIsAsked)
{
    enterComposite(WorkflowStep::step4, {20, 5}, {18, 3}); // and not kept
    EXPECT_TRUE(guard.mayClose());
    EXPECT_FALSE(alerts.isOpen());
}

TEST_F(Closing, DuringAnExportIsAskedAboutOnce)
{
    exportFor(3);
    int asked = 0;
    QObject::connect(&guard, &ClosingGuard::asked, [&] { ++asked; });
    for (int wish = 0; wish < 3; ++wish)
        EXPECT_FALSE(guard.mayClose());
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(alerts.title(), QStringLiteral("[Quit During Export Title]"));
    EXPECT_EQ(alerts.message(), QStringLiteral("[Quit During Export Message]"));
    answer(1);
    EXPECT_FALSE(alerts.isOpen()) << "no second question waits behind the first";
}

TEST_F(Closing, TheQuestionIsADestructiveOne)
{
    exportFor(3);
    guard.mayClose();
    EXPECT_TRUE(alerts.isDestructive());
    EXPECT_THAT(alerts.buttons(), testing::ElementsAre(QStringLiteral("[Quit]"), QStringLiteral("[Cancel]")));
}

TEST_F(Closing, QuitGivesTheExportUp)
{
    exportFor(3);
    guard.mayClose();
    answer(0);
    EXPECT_EQ(confirmed, 1);
    EXPECT_EQ(declined, 0);
    EXPECT_TRUE(exporters.back()->isCancelled());
    EXPECT_FALSE(session->isExporting());
    EXPECT_TRUE(guard.mayClose()) << "the export may still be tidying up";
    EXPECT_FALSE(alerts.isOpen());
}

TEST_F(Closing, CancelLetsTheExportGoOnAndTheNextWishIsAskedAboutAgain)
{
    exportFor(3);
    guard.mayClose();
    alerts.close(); // Escape
    QCoreApplication::processEvents();
    EXPECT_EQ(confirmed, 0);
    EXPECT_EQ(declined, 1);
    EXPECT_FALSE(exporters.back()->isCancelled());
    EXPECT_TRUE(session->isExporting());
    EXPECT_FALSE(guard.mayClose());
    EXPECT_TRUE(alerts.isOpen());
    answer(1);
}

TEST_F(Closing, TheQuestionGoesOnceTheMovieIsFinished)
{
    exportFor(9);
    guard.mayClose();
    advance(2);
    ASSERT_FALSE(session->isExporting());
    EXPECT_FALSE(alerts.isOpen());
    QCoreApplication::processEvents();
    EXPECT_EQ(confirmed, 0);
    EXPECT_EQ(declined, 1);
    EXPECT_FALSE(exporters.back()->isCancelled());
    EXPECT_TRUE(guard.mayClose());
}

TEST_F(Closing, AWishWhileTheQuestionOfSomethingElseStandsWaitsForIt)
{
    exportFor(3);
    alerts.ask({QStringLiteral("other"), {}, {QStringLiteral("OK")}});
    EXPECT_FALSE(guard.mayClose());
    EXPECT_EQ(alerts.title(), QStringLiteral("other"));
    answer(0);
    EXPECT_EQ(alerts.title(), QStringLiteral("[Quit During Export Title]"));
    answer(0);
    EXPECT_EQ(confirmed, 1);
}

}
}
