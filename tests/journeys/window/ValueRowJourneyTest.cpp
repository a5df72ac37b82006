// SPDX-License-Identifier: GPL-3.0-or-later
#include "journeys/window/RowsPage.h"

#include <QAccessible>
#include <QTest>

namespace zumeta {
namespace {

using namespace test;

TEST_F(RowsPage, TakesWhatIsTypedAtReturnAndSelectsItAll)
{
    openPage();
    type("Zoom", "12");
    EXPECT_EQ(session().aboveZoom(), 0); // not before
    press(Qt::Key_Return);
    EXPECT_EQ(session().aboveZoom(), 12);
    EXPECT_TRUE(field("Zoom")->hasActiveFocus());
    EXPECT_EQ(selection("Zoom"), "12");
}

TEST_F(RowsPage, LetsNothingBeTypedThatIsNoNumber)
{
    openPage();
    type("Zoom", "1x-2 y");
    EXPECT_EQ(text("Zoom"), "12");
    press(Qt::Key_Home);
    type("q-");
    EXPECT_EQ(text("Zoom"), "-12");
    EXPECT_EQ(field("Zoom")->property("cursorPosition").toInt(), 1);
    press(Qt::Key_Return);
    EXPECT_EQ(session().aboveZoom(), -12);
}

TEST_F(RowsPage, TakesADecimalComma)
{
    openPage();
    type("Timing", "1,5");
    EXPECT_EQ(text("Timing"), "1.5");
    press(Qt::Key_Return);
    EXPECT_EQ(session().timingOffset(), 150);
    EXPECT_EQ(text("Timing"), "1.50");
}

TEST_F(RowsPage, NeitherCutsNorRoundsWhatItShows)
{
    openPage();
    session().setTimingOffset(-125);
    EXPECT_EQ(text("Timing"), "-1.25"); // longer than what may be typed elsewhere
    focus("Timing");
    press(Qt::Key_Tab);
    EXPECT_EQ(text("Timing"), "-1.25");
    EXPECT_EQ(session().timingOffset(), -125);
}

TEST_F(RowsPage, FiltersAnInputMethodsTextOnceItIsCommitted)
{
    openPage();
    focus("Zoom");
    compose("Zoom", u"", u"１２あ");
    EXPECT_TRUE(field("Zoom")->property("inputMethodComposing").toBool());
    EXPECT_EQ(field("Zoom")->property("preeditText").toString(), QStringLiteral("１２あ"));
    compose("Zoom", u"１２あ", u"");
    EXPECT_EQ(text("Zoom"), "12");
    press(Qt::Key_Return);
    EXPECT_EQ(session().aboveZoom(), 12);
}

TEST_F(RowsPage, KeepsACompositionThatFollowsACommitInOneStroke)
{
    openPage();
    focus("Zoom");
    compose("Zoom", u"", u"ㄱ");
    compose("Zoom", u"가", u"１");
    EXPECT_EQ(field("Zoom")->property("preeditText").toString(), QStringLiteral("１"));
    compose("Zoom", u"１", u"");
    EXPECT_EQ(text("Zoom"), "1");
}

TEST_F(RowsPage, FiltersWhatWasCommittedBeforeACompositionThatIsGivenUp)
{
    openPage();
    focus("Zoom");
    compose("Zoom", u"", u"ㄱ");
    compose("Zoom", u"1가", u"ㄴ");
    compose("Zoom", u"", u"");
    EXPECT_EQ(text("Zoom"), "1");
}

TEST_F(RowsPage, IsWalkedThroughByTab)
{
    openPage();
    type("Waterline Height", "7");
    press(Qt::Key_Tab);
    EXPECT_EQ(session().relativeWaterlineHeight(), 7);
    EXPECT_TRUE(field("Person Height")->hasActiveFocus());
    EXPECT_EQ(selection("Person Height"), "0");
    type("8");
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(session().relativeAboveOffset(), 8);
    EXPECT_TRUE(field("Waterline Height")->hasActiveFocus());
    EXPECT_EQ(selection("Waterline Height"), "7");
    EXPECT_EQ(focusCount(), 1);
}

TEST_F(RowsPage, PutsTheCaretWhereItIsClicked)
{
    openPage();
    session().setAboveZoom(100);
    QQuickItem* const zoom = field("Zoom");
    QTest::mouseClick(&window(), Qt::LeftButton, {}, zoom->mapToScene(QPointF(8, 14)).toPoint());
    EXPECT_TRUE(zoom->hasActiveFocus());
    EXPECT_EQ(zoom->property("cursorPosition").toInt(), 0);
    EXPECT_EQ(selection("Zoom"), "");
}

TEST_F(RowsPage, IsLeftByEscapeWithTheTextThatWasShown)
{
    openPage();
    type("Zoom", "55");
    press(Qt::Key_Escape);
    EXPECT_FALSE(field("Zoom")->hasActiveFocus());
    EXPECT_EQ(text("Zoom"), "0");
    EXPECT_EQ(session().aboveZoom(), 0);
    EXPECT_EQ(focusCount(), 0);
}

TEST_F(RowsPage, CountsTheFieldThatHasTheFocus)
{
    openPage();
    EXPECT_EQ(focusCount(), 0);
    focus("Zoom");
    EXPECT_EQ(focusCount(), 1);
    focus("Timing");
    EXPECT_EQ(focusCount(), 1);
    post(notifications::kClearTextFieldFocus);
    EXPECT_EQ(focusCount(), 0);
    EXPECT_FALSE(field("Timing")->hasActiveFocus());
}

TEST_F(RowsPage, AppliesATextWhenTheWindowAsksForTheKeys)
{
    openPage();
    type("Zoom", "31");
    post(notifications::kClearTextFieldFocus);
    EXPECT_EQ(session().aboveZoom(), 31);
}

TEST_F(RowsPage, AdjustsTheFocusedRowByTheArrowKeysRequest)
{
    openPage();
    focus("Timing");
    post(notifications::kAdjustFocusedNumericField,
         {{QStringLiteral("direction"), -1}, {QStringLiteral("isLargeStep"), true}});
    EXPECT_EQ(session().timingOffset(), -10);
    EXPECT_EQ(text("Timing"), "-0.10");
    EXPECT_EQ(session().aboveZoom(), 0);
}

TEST_F(RowsPage, KeepsItsFieldWhileAMenuIsOpen)
{
    openPage();
    type("Zoom", "31");
    QMetaObject::invokeMethod(part("menuOpener"), "openMenu");
    ASSERT_TRUE(waitFor([&] { return !field("Zoom")->hasActiveFocus(); }));
    EXPECT_EQ(focusCount(), 1);
    EXPECT_EQ(text("Zoom"), "31");
    EXPECT_EQ(session().aboveZoom(), 0);
    press(Qt::Key_Escape);
    ASSERT_TRUE(waitFor([&] { return field("Zoom")->hasActiveFocus(); }));
    EXPECT_EQ(focusCount(), 1);
    press(Qt::Key_Return);
    EXPECT_EQ(session().aboveZoom(), 31);
}

TEST_F(RowsPage, GivesUpAFieldThatIsLentToAMenuForAnotherThatIsPressed)
{
    openPage();
    type("Zoom", "31");
    QMetaObject::invokeMethod(part("menuOpener"), "openMenu");
    ASSERT_TRUE(waitFor([&] { return !field("Zoom")->hasActiveFocus(); }));
    click(field("Waterline Height")); // beside the menu, which closes
    ASSERT_TRUE(waitFor([&] { return field("Waterline Height")->hasActiveFocus(); }));
    EXPECT_EQ(session().aboveZoom(), 31);
    EXPECT_EQ(focusCount(), 1);
    QTest::qWait(50); // the menu is gone by now
    EXPECT_TRUE(field("Waterline Height")->hasActiveFocus());
}

TEST_F(RowsPage, DropsItsFocusWithTheFieldThatIsDestroyed)
{
    openPage();
    type("Zoom", "31");
    closePage();
    EXPECT_EQ(focusCount(), 0);
    EXPECT_EQ(session().aboveZoom(), 0);
}

TEST_F(RowsPage, LeavesAFieldThatIsHidden)
{
    openPage();
    type("Zoom", "31");
    part("Zoom")->setVisible(false);
    EXPECT_EQ(focusCount(), 0);
    EXPECT_EQ(session().aboveZoom(), 31);
}

TEST_F(RowsPage, FollowsTheSessionWhileItIsEdited)
{
    openPage();
    type("Zoom", "31");
    session().setAboveZoom(4);
    EXPECT_EQ(text("Zoom"), "4");
}

TEST_F(RowsPage, TellsAssistiveTechnologyWhatItsPartsAre)
{
    openPage();
    app().languages().setLanguage(AppLanguage::german);
    const auto interfaceOf = [&](const char* name) { return QAccessible::queryAccessibleInterface(part(name)); };
    const auto nameOf = [&](const char* name) { return interfaceOf(name)->text(QAccessible::Name).toStdString(); };
    EXPECT_EQ(interfaceOf("Timing field")->role(), QAccessible::EditableText);
    EXPECT_EQ(nameOf("Timing field"), "Timing");
    EXPECT_EQ(interfaceOf("Timing field")->text(QAccessible::Description), QStringLiteral("s"));
    EXPECT_EQ(interfaceOf("Boundary Blur minus")->role(), QAccessible::Button);
    EXPECT_EQ(nameOf("Boundary Blur minus"), "Weiche Kante verringern");
    EXPECT_EQ(nameOf("Boundary Blur plus"), "Weiche Kante erhöhen");
    EXPECT_EQ(interfaceOf("Boundary Blur track")->role(), QAccessible::Slider);
    QAccessibleValueInterface* const value = interfaceOf("Timing track")->valueInterface();
    ASSERT_TRUE(value);
    session().setTimingOffset(-125);
    EXPECT_EQ(value->currentValue().toDouble(), -125);
    EXPECT_EQ(value->minimumValue().toDouble(), -500);
    EXPECT_EQ(value->maximumValue().toDouble(), 500);
    interfaceOf("Timing plus")->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(session().timingOffset(), -124);
    interfaceOf("Timing track")->actionInterface()->doAction(QAccessibleActionInterface::decreaseAction());
    EXPECT_EQ(session().timingOffset(), -125);
}

TEST_F(RowsPage, ShowsTheTimesOfTheRange)
{
    openPage(4);
    EXPECT_EQ(text("Trim Start"), "00:00.00");
    EXPECT_EQ(text("Trim End"), "00:03.00");
    type("Trim End", "0:02.5");
    press(Qt::Key_Return);
    EXPECT_EQ(text("Trim End"), "00:02.50");
    EXPECT_NEAR(session().trimEndPosition(), 2.5, 1e-9);
    type("Trim Start", "9");
    press(Qt::Key_Return);
    EXPECT_EQ(text("Trim Start"), "00:02.00");
}

}
}
