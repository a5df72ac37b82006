// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/DelegateScene.h"

#include <QScreen>
#include <QTest>

namespace zumeta {
namespace {

struct Reopening : test::DelegateScene {
    bool isFilled()
    {
        return window.windowStates().testFlag(Qt::WindowMaximized) &&
               window.frameGeometry() == window.screen()->availableGeometry();
    }
    void launch()
    {
        delegate.applicationDidFinishLaunching(window);
        delegate.showWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    void giveSize(QSize size)
    {
        window.showNormal();
        QCoreApplication::processEvents();
        window.resize(size);
        QCoreApplication::processEvents();
        ASSERT_EQ(window.size(), size);
    }
};

TEST_F(Reopening, AfterALaunchWithoutAWindowAppliesTheFrame)
{
    delegate.showWindow();
    EXPECT_TRUE(delegate.applicationShouldHandleReopen(false));
    delegate.applicationDidBecomeActive();
    delegate.applicationDidFinishLaunching(window);
    EXPECT_FALSE(window.isVisible());
    EXPECT_TRUE(delegate.applicationShouldHandleReopen(false));
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    EXPECT_TRUE(isFilled());
}

TEST_F(Reopening, AClosedWindowGivesItTheSizeThatItHad)
{
    launch();
    EXPECT_TRUE(isFilled());
    giveSize({1100, 700});
    window.close();
    EXPECT_TRUE(delegate.applicationShouldHandleReopen(false));
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(window.size(), QSize(1100, 700));
    EXPECT_FALSE(isFilled());
}

TEST_F(Reopening, LeavesVisibleWindowsAlone)
{
    launch();
    window.hide();
    EXPECT_TRUE(delegate.applicationShouldHandleReopen(true));
    EXPECT_FALSE(window.isVisible());
}

TEST_F(Reopening, BecomingActiveBringsAMinimisedWindowBackAsItWas)
{
    launch();
    giveSize({1100, 700});
    window.showMinimized();
    ASSERT_TRUE(window.windowStates().testFlag(Qt::WindowMinimized));
    delegate.applicationDidBecomeActive();
    EXPECT_FALSE(window.windowStates().testFlag(Qt::WindowMinimized));
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    EXPECT_EQ(window.size(), QSize(1100, 700));
}

TEST_F(Reopening, BecomingActiveShowsNoWindowThatIsHidden)
{
    launch();
    window.hide();
    delegate.applicationDidBecomeActive();
    EXPECT_FALSE(window.isVisible());
}

TEST_F(Reopening, BecomingActiveGivesTheKeyboardToTheDialogThatHoldsTheWindowUp)
{
    launch();
    QWindow dialog;
    dialog.setTransientParent(&window);
    dialog.setModality(Qt::WindowModal);
    dialog.show();
    QWindow other;
    other.show();
    other.requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    delegate.applicationDidBecomeActive();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
}

}
}
