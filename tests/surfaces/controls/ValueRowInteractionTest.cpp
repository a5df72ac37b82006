// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/controls/ValueRowInteraction.h"

#include "surfaces/controls/PrintRowIntents.h"
#include "surfaces/controls/RepeatSchedule.h"
#include "surfaces/controls/Rows.h"

#include <gmock/gmock.h>

namespace zumeta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

ValueRowInteraction focusedRow()
{
    ValueRowInteraction row;
    row.focusArrived(Qt::MouseFocusReason);
    return row;
}

TEST(ValueRowButtons, StepAndEndTheEditing)
{
    const ValueRowInteraction row;
    EXPECT_THAT(row.plus(wholeNumberRow(), 6),
                ElementsAre(InteractionBegan{}, SetValue{7}, ShowValue{}, EditingEnded{}));
    EXPECT_THAT(row.minus(wholeNumberRow(), 6),
                ElementsAre(InteractionBegan{}, SetValue{5}, ShowValue{}, EditingEnded{}));
}

TEST(ValueRowButtons, AtABoundOnlyTheInteractionBegins)
{
    const ValueRowInteraction row;
    EXPECT_THAT(row.plus(wholeNumberRow(), 100), ElementsAre(InteractionBegan{}));
    EXPECT_THAT(row.minus(wholeNumberRow(), -100), ElementsAre(InteractionBegan{}));
}

TEST(ValueRowButtons, HoldingPlusAtTheUpperBoundBeginsAtEveryRepeatAndNeverEnds)
{
    const ValueRowInteraction row;
    RepeatSchedule schedule;
    ValueRowIntents all;
    const auto act = [&] {
        const ValueRowIntents intents = row.plus(wholeNumberRow(), 100);
        all.insert(all.end(), intents.begin(), intents.end());
    };
    if (schedule.press(0))
        act();
    for (int i = 0; i < 9; ++i) {
        if (schedule.takeDue(*schedule.nextDue()))
            act();
    }
    EXPECT_EQ(all.size(), 10);
    EXPECT_THAT(all, testing::Each(ValueRowIntent(InteractionBegan{})));
}

TEST(ValueRowTrack, ADragBeginsOnceAndEndsOnce)
{
    ValueRowInteraction row;
    const TrackScale scale = TrackScale::of(200, wholeNumberRow());
    EXPECT_THAT(row.dragTrack(150, scale), ElementsAre(InteractionBegan{}, SetValue{50}));
    EXPECT_TRUE(row.isDraggingSlider());
    EXPECT_THAT(row.dragTrack(160, scale), ElementsAre(SetValue{60}));
    EXPECT_THAT(row.endTrackDrag(), ElementsAre(EditingEnded{}));
    EXPECT_FALSE(row.isDraggingSlider());
}

TEST(ValueRowTrack, AnEndWithoutADragIsNone)
{
    ValueRowInteraction row;
    EXPECT_THAT(row.endTrackDrag(), IsEmpty());
}

TEST(ValueRowTrack, WithoutWidthIsNotDragged)
{
    ValueRowInteraction row;
    EXPECT_THAT(row.dragTrack(0, TrackScale::of(0, wholeNumberRow())), IsEmpty());
    EXPECT_FALSE(row.isDraggingSlider());
}

TEST(ValueRowKeys, AdjustTheRowThatHasTheFocus)
{
    const ValueRowInteraction row = focusedRow();
    EXPECT_THAT(row.adjustFocusedValue({1, false}, wholeNumberRow(), 6),
                ElementsAre(InteractionBegan{}, SetValue{7}, ShowValue{}, EditingEnded{}));
    EXPECT_THAT(row.adjustFocusedValue({-1, true}, wholeNumberRow(), 6),
                ElementsAre(InteractionBegan{}, SetValue{-4}, ShowValue{}, EditingEnded{}));
}

TEST(ValueRowKeys, EndTheEditingAtABoundToo)
{
    EXPECT_THAT(focusedRow().adjustFocusedValue({1, false}, wholeNumberRow(), 100),
                ElementsAre(InteractionBegan{}, SetValue{100}, ShowValue{}, EditingEnded{}));
}

TEST(ValueRowKeys, LeaveARowWithoutTheFocusAlone)
{
    EXPECT_THAT(ValueRowInteraction().adjustFocusedValue({1, false}, wholeNumberRow(), 6), IsEmpty());
}

TEST(ValueRowKeys, LeaveARowAloneThatTakesNoKeys)
{
    ValueRowRules rules = wholeNumberRow();
    rules.keyboardAdjustmentEnabled = false;
    EXPECT_THAT(focusedRow().adjustFocusedValue({1, false}, rules, 6), IsEmpty());
}

TEST(ValueRowReturn, AppliesTheTextKeepsTheFocusAndSelectsAll)
{
    const ValueRowInteraction row = focusedRow();
    EXPECT_THAT(row.submit(QStringLiteral("12"), wholeNumberRow(), 6),
                ElementsAre(SetValue{12}, ShowValue{}, EditingEnded{}, SelectAll{}));
    EXPECT_TRUE(row.isFocused());
}

TEST(ValueRowReturn, BadTextSnapsBackAndTheEditingEndsAllTheSame)
{
    EXPECT_THAT(focusedRow().submit(QStringLiteral("1.2.3"), wholeNumberRow(), 6),
                ElementsAre(ShowValue{}, EditingEnded{}, SelectAll{}));
}

TEST(ValueRowReturn, OfTheTextAsItWasShownSetsNothing)
{
    EXPECT_THAT(focusedRow().submit(QStringLiteral("-1.25"), scaledRow(), -125.3),
                ElementsAre(ShowValue{}, EditingEnded{}, SelectAll{}));
}

}
}
