// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/portal/PortalDialogs.h"

#include <gtest/gtest.h>

namespace zumeta {
namespace {

TEST(PortalDialogs, AreBorrowedWhereTheyAreOffered)
{
    EXPECT_TRUE(borrowsDialogs({.isThemeChosenByUser = false, .isOffered = [] { return true; }}));
    EXPECT_FALSE(borrowsDialogs({.isThemeChosenByUser = false, .isOffered = [] { return false; }}));
}

TEST(PortalDialogs, AreNotAskedForByAUserWhoHasChosenATheme)
{
    bool isAsked = false;
    EXPECT_FALSE(borrowsDialogs({.isThemeChosenByUser = true, .isOffered = [&] { return isAsked = true; }}));
    EXPECT_FALSE(isAsked);
}

}
}
