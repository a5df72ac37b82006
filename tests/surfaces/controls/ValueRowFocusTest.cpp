// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/controls/ValueRowInteraction.h"

#include "surfaces/controls/PrintRowIntents.h"
#include "surfaces/controls/Rows.h"

#include <gmock/gmock.h>

namespace zumeta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const ValueRowRules kRules = wholeNumberRow();

ValueRowInteraction focusedRow()
{
    ValueRowInteraction row;
    row.focusArrived(Qt::MouseFocusReason);
    return row;
}

TEST(ValueRowFocus, ArrivingBeginsCountsAndShowsTheValue)
{
    ValueRowInteraction row;
    EXPECT_THAT(row.focusArrived(Qt::MouseFocusReason),
                ElementsAre(InteractionBegan{}, FocusCounted{true}, ShowValue{}));
    EXPECT_TRUE(row.isFocused());
}

TEST(ValueRowFocus, TabSelectsAllInTheNextRow)
{
    ValueRowInteraction row;
    EXPECT_THAT(row.focusArrived(Qt::TabFocusReason),
                ElementsAre(InteractionBegan{}, FocusCounted{true}, ShowValue{}, SelectAll{}));
}

TEST(ValueRowFocus, LeavingCountsOutAndAppliesTheText)
{
    ValueRowInteraction row = focusedRow();
    EXPECT_THAT(row.focusLeft(Qt::TabFocusReason, QStringLiteral("12"), kRules, 6),
                ElementsAre(FocusCounted{false}, SetValue{12}, ShowValue{}, EditingEnded{}));
    EXPECT_FALSE(row.isFocused());
}

TEST(ValueRowFocus, LeavingAnEmptyFieldKeepsTheValueAndRestoresTheText)
{
    ValueRowInteraction row = focusedRow();
    EXPECT_THAT(row.focusLeft(Qt::MouseFocusReason, QString(), kRules, 6),
                ElementsAre(FocusCounted{false}, ShowValue{}, EditingEnded{}));
}

TEST(ValueRowFocus, AVisitChangesNothingButEndsTheEditing)
{
    ValueRowInteraction row = focusedRow();
    EXPECT_THAT(row.focusLeft(Qt::MouseFocusReason, QStringLiteral("7"), kRules, 6.6),
                ElementsAre(FocusCounted{false}, ShowValue{}, EditingEnded{}));
}

TEST(ValueRowFocus, ReturnAndThenLeavingAppliesOnce)
{
    ValueRowInteraction row = focusedRow();
    row.submit(QStringLiteral("12"), kRules, 6);
    EXPECT_THAT(row.focusLeft(Qt::MouseFocusReason, QStringLiteral("12"), kRules, 12),
                ElementsAre(FocusCounted{false}, ShowValue{}, EditingEnded{}));
}

TEST(ValueRowFocus, EscapeAppliesNothingAndLeavesTheField)
{
    ValueRowInteraction row = focusedRow();
    EXPECT_THAT(row.escape(), ElementsAre(FocusCounted{false}, ShowValue{}, EditingEnded{}, LeaveField{}));
    EXPECT_FALSE(row.isFocused());
    EXPECT_THAT(row.focusLeft(Qt::OtherFocusReason, QStringLiteral("12"), kRules, 6), IsEmpty());
}

TEST(ValueRowFocus, EscapeWithoutTheFocusIsNone)
{
    EXPECT_THAT(ValueRowInteraction().escape(), IsEmpty());
}

TEST(ValueRowFocus, AMenuThatBorrowsItIsNoLoss)
{
    ValueRowInteraction row = focusedRow();
    for (const Qt::FocusReason reason : {Qt::PopupFocusReason, Qt::MenuBarFocusReason, Qt::ActiveWindowFocusReason}) {
        EXPECT_THAT(row.focusLeft(reason, QStringLiteral("12"), kRules, 6), IsEmpty());
        EXPECT_TRUE(row.isFocused());
        EXPECT_THAT(row.focusArrived(reason), IsEmpty());
    }
}

TEST(ValueRowFocus, ComingBackTwiceCountsOnce)
{
    ValueRowInteraction row = focusedRow();
    EXPECT_THAT(row.focusArrived(Qt::MouseFocusReason), IsEmpty());
}

TEST(ValueRowFocus, ClearingAppliesTheTextAndLeavesTheField)
{
    ValueRowInteraction row = focusedRow();
    EXPECT_THAT(row.clearFocus(QStringLiteral("12"), kRules, 6),
                ElementsAre(FocusCounted{false}, SetValue{12}, ShowValue{}, EditingEnded{}, LeaveField{}));
    EXPECT_THAT(row.focusLeft(Qt::OtherFocusReason, QStringLiteral("12"), kRules, 12), IsEmpty());
}

TEST(ValueRowFocus, ClearingEndsAFocusThatAMenuHasBorrowed)
{
    ValueRowInteraction row = focusedRow();
    row.focusLeft(Qt::PopupFocusReason, QStringLiteral("6"), kRules, 6);
    EXPECT_THAT(row.clearFocus(QStringLiteral("6"), kRules, 6),
                ElementsAre(FocusCounted{false}, ShowValue{}, EditingEnded{}, LeaveField{}));
}

TEST(ValueRowFocus, GivenBackByAMenuAfterItWasClearedCountsAgain)
{
    ValueRowInteraction row = focusedRow();
    row.focusLeft(Qt::PopupFocusReason, QStringLiteral("6"), kRules, 6);
    row.clearFocus(QStringLiteral("6"), kRules, 6);
    EXPECT_THAT(row.focusArrived(Qt::PopupFocusReason),
                ElementsAre(InteractionBegan{}, FocusCounted{true}, ShowValue{}));
    EXPECT_TRUE(row.isFocused());
}

TEST(ValueRowFocus, ClearingARowWithoutTheFocusIsNone)
{
    EXPECT_THAT(ValueRowInteraction().clearFocus(QStringLiteral("12"), kRules, 6), IsEmpty());
}

}
}
