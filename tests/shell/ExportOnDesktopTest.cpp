// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/ExportOnDesktop.h"

#include "platform/desktop/DesktopNotifier.h"
#include "platform/desktop/FakeDesktop.h"
#include "platform/desktop/LauncherProgress.h"
#include "session/SessionHarness.h"

#include <QTest>

namespace zumeta {
namespace {

using namespace test;
using testing::IsEmpty;

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

/// Two videos in Step 4, whose export takes 10 s, and a desktop with notifications and a dock. The user looks at
/// another program.
struct ExportOnTheDesktop : SessionTest {
    ExportOnTheDesktop()
    {
        enterComposite(WorkflowStep::step4, {20, 5}, {18, 3});
        dialogs.savePlace = FileUrl("/nowhere/swim.mp4");
        onDesktop.setWindow(window);
    }
    ~ExportOnTheDesktop() override
    {
        for (const QString& name : {kClient, kDesktop})
            QDBusConnection::disconnectFromBus(name);
    }
    /// Until the pipeline has begun: the panel's second, and the look at the disk.
    void start()
    {
        session->exportVideo(false);
        advance(1.15);
        ASSERT_TRUE(session->isExporting());
    }
    void activate(QWindow& shown)
    {
        shown.show();
        shown.requestActivate();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&shown));
    }
    bool isTold(size_t count = 1)
    {
        return becomesTrue([&] { return service.shown.size() >= count; });
    }
    /// Whoever was to be told has been told when one more message has come through.
    bool nobodyIsTold()
    {
        notifier.show({text("end"), {}, {}});
        return becomesTrue([&] { return !service.shown.empty(); }) && service.shown.size() == 1 &&
               service.shown[0].title == text("end");
    }

    const QString kClient = text("export-client");
    const QString kDesktop = text("export-desktop");
    PrivateBus bus;
    QDBusConnection client = bus.connection(kClient);
    QDBusConnection desktop = bus.connection(kDesktop);
    FakeNotifications service{desktop};
    FakeDock dock{desktop};
    DesktopNotifier notifier{client};
    LauncherProgress launcher{client, time};
    QWindow window;
    QWindow other;
    ExportOnDesktop onDesktop{*session, notifier, launcher};
};

TEST_F(ExportOnTheDesktop, TellsThatTheMovieIsDone)
{
    start();
    EXPECT_THAT(service.shown, IsEmpty());
    advance(11);
    ASSERT_TRUE(isTold());
    EXPECT_EQ(service.shown[0].title, text("[Export Notification Success Title]"));
    EXPECT_EQ(service.shown[0].body, text("swim.mp4"));
}

TEST_F(ExportOnTheDesktop, TellsThatItHasFailedAndWhy)
{
    exportScript.error = ExportError(ExportError::Case::exportSessionFailed);
    start();
    advance(11);
    ASSERT_TRUE(isTold());
    EXPECT_EQ(service.shown[0].title, text("[Export Notification Failure Title]"));
    EXPECT_EQ(service.shown[0].body, exportScript.error->errorDescription());
}

TEST_F(ExportOnTheDesktop, SaysNothingOfWhatWasCancelled)
{
    start();
    advance(3);
    session->cancelExport();
    advance(11);
    ASSERT_TRUE(session->exportNotification() || !log.empty()); // it has ended
    EXPECT_TRUE(nobodyIsTold());
}

TEST_F(ExportOnTheDesktop, SaysNothingOfWhatWasCancelledWhileAnEarlierOneStillSpeaks)
{
    exportScript.seconds = 1;
    start();
    activate(window); // so that nobody is told of the first
    advance(1);
    ASSERT_TRUE(session->exportNotification());
    activate(other);
    exportScript.seconds = 10;
    start();
    session->cancelExport();
    EXPECT_TRUE(session->exportNotification());
    EXPECT_TRUE(nobodyIsTold());
}

TEST_F(ExportOnTheDesktop, SaysNothingToAUserWhoLooksAtTheWindow)
{
    activate(window);
    start();
    advance(11);
    ASSERT_TRUE(session->exportNotification());
    EXPECT_TRUE(nobodyIsTold());
}

TEST_F(ExportOnTheDesktop, WhoComesBackHasSeenIt)
{
    activate(other);
    start();
    advance(11);
    ASSERT_TRUE(isTold());
    EXPECT_THAT(service.closed, IsEmpty());
    activate(window);
    EXPECT_TRUE(becomesTrue([&] { return service.closed.size() == 1; }));
}

TEST_F(ExportOnTheDesktop, TellsOfEachExport)
{
    for (const size_t count : {1U, 2U}) {
        start();
        advance(11);
        ASSERT_TRUE(isTold(count));
    }
}

TEST_F(ExportOnTheDesktop, ShowsTheProgressOnTheIconAndTakesItAwayAtTheEnd)
{
    start();
    advance(11);
    ASSERT_TRUE(becomesTrue([&] { return !dock.updates.empty() && !dock.updates.back().isVisible; }));
    ASSERT_EQ(dock.updates.size(), 12U); // each tenth from none to all, and the end
    for (size_t i = 0; i <= 10; ++i)
        EXPECT_NEAR(dock.updates[i].progress, double(i) / 10, 1e-9) << i;
}

TEST_F(ExportOnTheDesktop, TakesTheProgressAwayWhenItIsCancelled)
{
    start();
    advance(3);
    session->cancelExport();
    ASSERT_TRUE(becomesTrue([&] { return !dock.updates.empty() && !dock.updates.back().isVisible; }));
    const size_t count = dock.updates.size();
    advance(11);
    EXPECT_TRUE(nobodyIsTold());
    EXPECT_EQ(dock.updates.size(), count);
}

}
}
