// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/AppDelegate.h"

#include "platform/NotificationCenter.h"
#include "shell/ZumetaApp.h"
#include "support/TemporaryFolder.h"

#include <QScreen>
#include <QTest>
#include <gmock/gmock.h>
#include <utility>

namespace zumeta {
namespace {

/// The whole application: its delegate has no life of its own.
struct Window : testing::Test {
    Window()
    {
        for (const char* const folder : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"})
            qputenv(folder, QByteArray::fromStdString(home.file(folder).native()));
        app = std::make_unique<ZumetaApp>();
    }
    QQuickWindow& window() { return *app->window(); }
    void show()
    {
        app->showWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
    }

    test::TemporaryFolder home;
    std::unique_ptr<ZumetaApp> app;
};

TEST_F(Window, FillsTheUsableAreaWhenItIsFirstShown)
{
    show();
    EXPECT_TRUE(window().windowStates().testFlag(Qt::WindowMaximized));
    EXPECT_EQ(window().frameGeometry(), window().screen()->availableGeometry());
}

TEST_F(Window, ThatIsNotTheActiveOneClosesTheGate)
{
    EXPECT_TRUE(app->modality().gate().isWindowInactive);
    show();
    EXPECT_FALSE(app->modality().gate().isWindowInactive);
    QWindow other;
    other.show();
    other.requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    EXPECT_TRUE(app->modality().gate().isWindowInactive);
    window().requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
    EXPECT_FALSE(app->modality().gate().isWindowInactive);
}

TEST_F(Window, EndsEditingBeforeTheFieldsGoAway)
{
    int ended = 0;
    QObject owner;
    app->notifications().observe(notifications::kClearTextFieldFocus, &owner, [&](const QVariantMap&) { ++ended; });
    CompositorViewModel& session = app->session();
    // Once or more: a panel that is about to go may say so as well.
    const auto hasEnded = [&] { return std::exchange(ended, 0) > 0; };
    session.setCameraSelectionConfirmed(true);
    EXPECT_TRUE(hasEnded());
    session.setCurrentStep(CompositorViewModel::WorkflowStep::step3);
    EXPECT_TRUE(hasEnded());
    session.setFullScreen(true);
    EXPECT_TRUE(hasEnded());
    session.setShowMissingFileAlert(true);
    EXPECT_TRUE(hasEnded());
}

TEST_F(Window, EndsEditingAtAPressAnywhereWithTheLeftButton)
{
    show();
    int ended = 0;
    QObject owner;
    app->notifications().observe(notifications::kClearTextFieldFocus, &owner, [&](const QVariantMap&) { ++ended; });
    QTest::mouseClick(&window(), Qt::LeftButton, {}, {200, 300});
    EXPECT_EQ(ended, 1);
    QTest::mouseClick(&window(), Qt::RightButton, {}, {200, 300});
    EXPECT_EQ(ended, 1);
}

TEST_F(Window, SeesNothingMoreOnceTheApplicationEnds)
{
    show();
    app->session().setCameraSelectionConfirmed(true);
    int toggled = 0;
    QObject owner;
    app->notifications().observe(notifications::kTogglePlaybackShortcut, &owner,
                                 [&](const QVariantMap&) { ++toggled; });
    QTest::keyClick(&window(), Qt::Key_Space);
    EXPECT_EQ(toggled, 1);
    app->delegate().applicationWillTerminate();
    QTest::keyClick(&window(), Qt::Key_Space);
    EXPECT_EQ(toggled, 1);
}

}
}
