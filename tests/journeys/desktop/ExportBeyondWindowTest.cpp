// SPDX-License-Identifier: GPL-3.0-or-later
#include "journeys/desktop/DesktopJourney.h"
#include "platform/desktop/FakeDesktop.h"

#include <QFileDialog>
#include <QLineEdit>

namespace zumeta {
namespace {

using namespace test;

/// The application in a session whose bus has notifications and a dock.
struct ExportBeyondTheWindow : DesktopJourney {
    // Before the application asks for the session's bus.
    ExportBeyondTheWindow() { qputenv("DBUS_SESSION_BUS_ADDRESS", bus.address().toUtf8()); }

    void exportTo(const std::filesystem::path& file)
    {
        app().session().exportVideo(false);
        ASSERT_TRUE(waitFor([&] { return fileDialog() != nullptr; }));
        fileDialog()->findChild<QLineEdit*>()->setText(QString::fromStdString(file.native()));
        static_cast<QDialog*>(fileDialog())->accept();
        ASSERT_TRUE(waitFor([&] { return app().session().isExporting(); }));
    }

    PrivateBus bus;
    FakeNotifications service{bus.connection(QStringLiteral("desktop"))};
    FakeDock dock{QDBusConnection(QStringLiteral("desktop"))};
    TemporaryFolder movies;
};

TEST_F(ExportBeyondTheWindow, ItsEndIsToldAndAClickBringsTheMinimizedWindowBack)
{
    openOnDesktop({1400, 900});
    openStep(4);
    app().session().setSelectedResolution(ExportResolutionType::hd1080); // long enough to look away
    exportTo(movies.file("swim.mp4"));
    window().showMinimized();
    ASSERT_TRUE(waitFor([&] { return !window().isActive(); }));
    ASSERT_TRUE(waitFor([&] { return !service.shown.empty(); }, 30'000));
    EXPECT_FALSE(app().session().isExporting());
    EXPECT_EQ(service.shown[0].title, QStringLiteral("Export Complete"));
    EXPECT_EQ(service.shown[0].body, QStringLiteral("swim.mp4"));
    EXPECT_TRUE(waitFor([&] { return !dock.updates.empty() && !dock.updates.back().isVisible; }));
    EXPECT_TRUE(dock.updates.front().isVisible);
    EXPECT_EQ(dock.updates.front().application, QStringLiteral("application://com.zumetaapp.Zumeta.desktop"));
    ASSERT_TRUE(window().windowStates().testFlag(Qt::WindowMinimized));
    service.click(service.shown[0].id);
    EXPECT_TRUE(waitFor([&] { return window().isActive() && window().isExposed(); }));
    EXPECT_FALSE(window().windowStates().testFlag(Qt::WindowMinimized));
    EXPECT_TRUE(waitFor([&] { return service.closed.size() == 1; })) << "it has been seen";
}

}
}
