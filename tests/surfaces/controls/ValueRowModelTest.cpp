// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/controls/RowHarness.h"

namespace zumeta {
namespace {

using namespace test;
using testing::ElementsAre;
using testing::IsEmpty;

struct ValueRow : RowTest {};

QString text(const char16_t* characters)
{
    return QString::fromUtf16(characters);
}

TEST_F(ValueRow, ShowsItsValueFromTheBeginning)
{
    EXPECT_EQ(makeRow(scaledRow(), -125).textInput(), text(u"-1.25"));
    EXPECT_EQ(row->value(), -125);
}

TEST_F(ValueRow, FollowsAChangeOfTheValueFromAnywhereWhileItIsEditedToo)
{
    makeRow(wholeNumberRow(), 6);
    focusByMouse();
    type(u"77");
    value = 8;
    row->refresh();
    EXPECT_EQ(row->textInput(), text(u"8"));
    EXPECT_EQ(field->told.back(), text(u"8|1"));
}

TEST_F(ValueRow, LeavesATypedTextAloneWhileTheValueStands)
{
    makeRow(wholeNumberRow(), 6);
    focusByMouse();
    type(u"77");
    row->refresh();
    EXPECT_EQ(row->textInput(), text(u"77"));
}

TEST_F(ValueRow, TypingStoresNothing)
{
    makeRow(wholeNumberRow(), 6);
    focusByMouse();
    log.clear();
    type(u"77");
    EXPECT_EQ(value, 6);
    EXPECT_THAT(log, IsEmpty());
}

TEST_F(ValueRow, FiltersWhatIsTypedAndKeepsTheCaret)
{
    makeRow(wholeNumberRow(), 6);
    row->typed(text(u"1x2"), 2, false);
    EXPECT_EQ(row->textInput(), text(u"12"));
    EXPECT_THAT(field->told, ElementsAre(text(u"12|1")));
}

TEST_F(ValueRow, TakesALetterBackOutOfTheFieldThoughTheTextStaysAsItWas)
{
    makeRow(wholeNumberRow(), 6);
    row->typed(text(u"6x"), 2, false);
    EXPECT_EQ(row->textInput(), text(u"6"));
    EXPECT_THAT(field->told, ElementsAre(text(u"6|1")));
}

TEST_F(ValueRow, WritesNothingIntoTheFieldForATextThatMayStand)
{
    makeRow(wholeNumberRow(), 6);
    row->typed(text(u"62"), 1, false);
    EXPECT_EQ(row->textInput(), text(u"62"));
    EXPECT_THAT(field->told, IsEmpty());
}

TEST_F(ValueRow, MakesADecimalCommaAPoint)
{
    makeRow(scaledRow(), 0);
    focusByMouse();
    type(u"1,5");
    EXPECT_EQ(row->textInput(), text(u"1.5"));
    leaveByMouse();
    EXPECT_EQ(value, 150);
}

TEST_F(ValueRow, NeverCutsWhatItShowsItself)
{
    ValueRowRules narrow = wholeNumberRow();
    makeRow(narrow, -123456); // beyond its range, and longer than what may be typed
    EXPECT_EQ(row->textInput(), text(u"-123456"));
    row->typed(text(u"-123456"), 7, false); // the field tells of it as of anything
    EXPECT_EQ(row->textInput(), text(u"-123456"));
    EXPECT_THAT(field->told, IsEmpty());
}

TEST_F(ValueRow, FiltersNothingWhileAnInputMethodComposes)
{
    makeRow(wholeNumberRow(), 6);
    row->typed(text(u"６x"), 2, true);
    EXPECT_THAT(field->told, IsEmpty());
}

TEST_F(ValueRow, FiltersWhatAnInputMethodHasCommitted)
{
    makeRow(wholeNumberRow(), 0);
    focusByMouse();
    row->typed(text(u"１２x"), 3, true);
    row->typed(text(u"１２x"), 3, false);
    EXPECT_EQ(row->textInput(), text(u"12"));
    row->submit();
    EXPECT_EQ(value, 12);
}

TEST_F(ValueRow, ReturnAppliesAndSelectsAll)
{
    makeRow(wholeNumberRow(), 6);
    focusByMouse();
    type(u"12");
    log.clear();
    field->told.clear();
    row->submit();
    EXPECT_THAT(log, ElementsAre(text(u"set 12"), text(u"ended")));
    EXPECT_EQ(field->told.back(), text(u"all"));
    EXPECT_TRUE(row->isFocused());
}

TEST_F(ValueRow, TabSelectsAll)
{
    makeRow(wholeNumberRow(), 6);
    row->focusChanged(true, Qt::TabFocusReason);
    EXPECT_EQ(field->told.back(), text(u"all"));
}

TEST_F(ValueRow, AClickPlacesTheCaretAndSelectsNothing)
{
    makeRow(wholeNumberRow(), 6);
    focusByMouse();
    EXPECT_THAT(field->told, testing::Not(testing::Contains(text(u"all"))));
}

TEST_F(ValueRow, EscapeRestoresTheTextAndLeavesTheField)
{
    makeRow(wholeNumberRow(), 6);
    focusByMouse();
    type(u"12");
    row->escape();
    EXPECT_EQ(value, 6);
    EXPECT_EQ(row->textInput(), text(u"6"));
    EXPECT_EQ(field->told.back(), text(u"leave"));
    EXPECT_FALSE(row->isFocused());
    EXPECT_EQ(focus.focusCount(), 0);
}

TEST_F(ValueRow, BeginsOnceItHasTheFocusAndEndsWhenItHasLostIt)
{
    makeRow(wholeNumberRow(), 6);
    focusByMouse();
    EXPECT_THAT(log, ElementsAre(text(u"began")));
    leaveByMouse();
    EXPECT_THAT(log, ElementsAre(text(u"began"), text(u"ended")));
}

TEST_F(ValueRow, CountsItsFocus)
{
    makeRow(wholeNumberRow(), 6);
    focusByMouse();
    EXPECT_EQ(focus.focusCount(), 1);
    EXPECT_TRUE(row->isFocused());
    leaveByMouse();
    EXPECT_EQ(focus.focusCount(), 0);
    EXPECT_FALSE(row->isFocused());
}

TEST_F(ValueRow, KeepsItsFocusWhileAMenuBorrowsIt)
{
    makeRow(wholeNumberRow(), 6);
    focusByMouse();
    type(u"12");
    row->focusChanged(false, Qt::PopupFocusReason);
    row->focusChanged(true, Qt::PopupFocusReason);
    EXPECT_EQ(focus.focusCount(), 1);
    EXPECT_EQ(row->textInput(), text(u"12"));
}

TEST_F(ValueRow, LeavesItsFieldWhenTheWindowAsksForTheKeys)
{
    makeRow(wholeNumberRow(), 6);
    focusByMouse();
    type(u"12");
    center.post(notifications::kClearTextFieldFocus);
    EXPECT_EQ(value, 12);
    EXPECT_EQ(focus.focusCount(), 0);
    EXPECT_EQ(field->told.back(), text(u"leave"));
}

TEST_F(ValueRow, TakesNoNoticeWhenTheWindowAsksForKeysThatItDoesNotHold)
{
    makeRow(wholeNumberRow(), 6);
    center.post(notifications::kClearTextFieldFocus);
    EXPECT_THAT(log, IsEmpty());
    EXPECT_THAT(field->told, IsEmpty());
}

TEST_F(ValueRow, IsAdjustedByTheArrowKeysWhileItHasTheFocus)
{
    makeRow(wholeNumberRow(), 6);
    focusByMouse();
    log.clear();
    center.post(notifications::kAdjustFocusedNumericField,
                {{QStringLiteral("direction"), -1}, {QStringLiteral("isLargeStep"), true}});
    EXPECT_THAT(log, ElementsAre(text(u"began"), text(u"set -4"), text(u"ended")));
    EXPECT_EQ(row->textInput(), text(u"-4"));
}

TEST_F(ValueRow, IsNotAdjustedWithoutTheFocus)
{
    makeRow(wholeNumberRow(), 6);
    center.post(notifications::kAdjustFocusedNumericField, {{QStringLiteral("direction"), 1}});
    EXPECT_EQ(value, 6);
    EXPECT_THAT(log, IsEmpty());
}

TEST_F(ValueRow, IsNotAdjustedByARequestWithoutADirection)
{
    makeRow(wholeNumberRow(), 6);
    focusByMouse();
    center.post(notifications::kAdjustFocusedNumericField, {{QStringLiteral("direction"), QStringLiteral("1")}});
    EXPECT_EQ(value, 6);
}

TEST_F(ValueRow, StepsWhileAButtonIsHeld)
{
    makeRow(wholeNumberRow(), 6);
    row->pressMinus();
    EXPECT_EQ(value, 5);
    EXPECT_THAT(log, ElementsAre(text(u"began"), text(u"set 5"), text(u"ended")));
    row->releaseStepper();
    row->pressPlus();
    EXPECT_EQ(value, 6);
    EXPECT_EQ(row->textInput(), text(u"6"));
}

TEST_F(ValueRow, AtABoundAPressOnlyBegins)
{
    makeRow(wholeNumberRow(), 100);
    EXPECT_FALSE(row->canStepUp());
    EXPECT_TRUE(row->canStepDown());
    row->pressPlus();
    EXPECT_THAT(log, ElementsAre(text(u"began")));
}

TEST_F(ValueRow, IsDraggedFromThePressToTheRelease)
{
    makeRow(wholeNumberRow(), 6);
    std::vector<bool> told;
    QObject::connect(row.get(), &ValueRowModel::isDraggingSliderChanged, row.get(),
                     [&] { told.push_back(row->isDraggingSlider()); });
    row->dragTrack(150, 200);
    row->dragTrack(160, 200);
    row->endTrackDrag();
    EXPECT_THAT(log, ElementsAre(text(u"began"), text(u"set 50"), text(u"set 60"), text(u"ended")));
    EXPECT_THAT(told, ElementsAre(true, false));
    EXPECT_EQ(row->textInput(), text(u"60"));
}

TEST_F(ValueRow, ShowsTheValueThatTheSetterMakesOfIt)
{
    makeRow(wholeNumberRow(), 6);
    value = 7;
    ValueRowSource stubborn;
    stubborn.rules = [] { return wholeNumberRow(); };
    stubborn.value = [] { return 7.0; };
    stubborn.setValue = [](double) {};
    ValueRowModel other(std::move(stubborn), {center, focus, time});
    other.focusChanged(true, Qt::MouseFocusReason);
    other.typed(text(u"12"), 2, false);
    other.focusChanged(false, Qt::MouseFocusReason);
    EXPECT_EQ(other.textInput(), text(u"7"));
}

TEST_F(ValueRow, HasItsKnobAndTheMarkOfZeroAtTheirParts)
{
    makeRow(scaledRow(), -250);
    EXPECT_EQ(row->knobFraction(), 0.25);
    EXPECT_TRUE(row->hasZeroTick());
    EXPECT_EQ(row->zeroTickFraction(), 0.5);
    makeRow(timecodeRow(), 150);
    EXPECT_EQ(row->knobFraction(), 0.25);
    EXPECT_FALSE(row->hasZeroTick());
}

TEST_F(ValueRow, FollowsItsRange)
{
    makeRow(timecodeRow(), 150);
    bool isTold = false;
    QObject::connect(row.get(), &ValueRowModel::valueChanged, row.get(), [&] { isTold = true; });
    rules.upper = 300;
    row->refresh();
    EXPECT_EQ(row->knobFraction(), 0.5);
    EXPECT_TRUE(isTold);
}

TEST_F(ValueRow, HasAWiderFieldForATimecode)
{
    EXPECT_EQ(makeRow(wholeNumberRow(), 0).fieldWidth(), 75);
    EXPECT_EQ(makeRow(timecodeRow(), 0).fieldWidth(), 92);
}

TEST_F(ValueRow, HoldsNothingOnceItCanNoLongerBeUsed)
{
    makeRow(wholeNumberRow(), 6);
    row->dragTrack(150, 200);
    row->pressPlus();
    log.clear();
    row->endGestures();
    EXPECT_FALSE(row->isDraggingSlider());
    EXPECT_THAT(log, ElementsAre(text(u"ended")));
    row->pressMinus(); // another press is possible again
    EXPECT_EQ(value, 50);
}

TEST_F(ValueRow, WhoseFieldIsDestroyedNoLongerCounts)
{
    makeRow(wholeNumberRow(), 6);
    focusByMouse();
    type(u"12");
    row->goAway();
    EXPECT_EQ(focus.focusCount(), 0);
    EXPECT_EQ(value, 6); // a text that was never applied goes with its field
    EXPECT_EQ(row->textInput(), text(u"6"));
}

}
}
