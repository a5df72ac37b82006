// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/instance/ScreenName.h"

#include <gtest/gtest.h>

namespace zumeta {
namespace {

QString onX11(const char* display)
{
    return screenName({QStringLiteral("xcb"), QString::fromLatin1(display), QStringLiteral("wayland-0")});
}

QString onWayland(const char* platform, const char* display)
{
    return screenName({QString::fromLatin1(platform), QStringLiteral(":0"), QString::fromLatin1(display)});
}

TEST(ScreenName, TellsOneDisplayFromAnother)
{
    EXPECT_NE(onX11(":0"), onX11(":1"));
    EXPECT_NE(onX11(":0"), onX11("localhost:0"));
    EXPECT_NE(onWayland("wayland", "wayland-0"), onWayland("wayland", "wayland-1"));
    EXPECT_NE(onX11(":0"), onWayland("wayland", ":0"));
}

TEST(ScreenName, IsThatOfTheDisplayWhicheverMonitorIsMeant)
{
    EXPECT_EQ(onX11(":0"), onX11(":0.0"));
    EXPECT_EQ(onX11(":0.1"), onX11(":0.0"));
    EXPECT_NE(onX11("a.example:0"), onX11("b.example:0"));
    EXPECT_NE(onX11("a.example:0.0"), onX11("a.example:1.0"));
}

TEST(ScreenName, FollowsThePlatformAndNotTheEnvironmentOfTheOther)
{
    EXPECT_EQ(onX11(":0"), screenName({QStringLiteral("xcb"), QStringLiteral(":0"), {}}));
    EXPECT_EQ(onWayland("wayland-egl", "wayland-0"), onWayland("wayland", "wayland-0"));
}

TEST(ScreenName, OfAWaylandSessionWithoutANameIsTheStandardOne)
{
    EXPECT_EQ(onWayland("wayland", ""), onWayland("wayland", "wayland-0"));
}

TEST(ScreenName, IsFitForAFilesAndShort)
{
    for (const QString& name : {onX11("a.host.example.org:10.0"), onWayland("wayland", "/run/user/1000/wayland 0")}) {
        EXPECT_FALSE(name.contains(QLatin1Char('/')));
        EXPECT_LT(name.size(), 24);
    }
}

TEST(ScreenName, IsNoneWhereNobodyElseSeesTheWindow)
{
    EXPECT_EQ(screenName({QStringLiteral("offscreen"), QStringLiteral(":0"), QStringLiteral("wayland-0")}), QString());
}

}
}
