// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/controls/TextFieldFocusTracker.h"

#include <gtest/gtest.h>

namespace zumeta {
namespace {

TEST(TextFieldFocusTracker, CountsTheRowsThatHoldTheFocus)
{
    TextFieldFocusTracker count;
    EXPECT_EQ(count.focusCount(), 0);
    count.arrived();
    EXPECT_EQ(count.focusCount(), 1);
    count.arrived();
    EXPECT_EQ(count.focusCount(), 2);
    count.left();
    count.left();
    EXPECT_EQ(count.focusCount(), 0);
}

TEST(TextFieldFocusTracker, IsNeverBelowZero)
{
    TextFieldFocusTracker count;
    count.left();
    EXPECT_EQ(count.focusCount(), 0);
    count.arrived();
    EXPECT_EQ(count.focusCount(), 1);
}

TEST(FocusReason, WhatBorrowsTheFocusDoesNotCount)
{
    for (const Qt::FocusReason reason : {Qt::PopupFocusReason, Qt::MenuBarFocusReason, Qt::ActiveWindowFocusReason})
        EXPECT_FALSE(countsAsFocusChange(reason)) << reason;
}

TEST(FocusReason, WhatTakesTheFocusCounts)
{
    for (const Qt::FocusReason reason : {Qt::MouseFocusReason, Qt::TabFocusReason, Qt::BacktabFocusReason,
                                         Qt::ShortcutFocusReason, Qt::OtherFocusReason})
        EXPECT_TRUE(countsAsFocusChange(reason)) << reason;
}

TEST(FocusReason, OnlyTabSelectsAll)
{
    EXPECT_TRUE(selectsAllOnArrival(Qt::TabFocusReason));
    EXPECT_TRUE(selectsAllOnArrival(Qt::BacktabFocusReason));
    EXPECT_FALSE(selectsAllOnArrival(Qt::MouseFocusReason));
    EXPECT_FALSE(selectsAllOnArrival(Qt::OtherFocusReason));
}

}
}
