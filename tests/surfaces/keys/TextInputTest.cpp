// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/keys/TextInput.h"

#include <gtest/gtest.h>

namespace zumeta {
namespace {

TextInputFacts focusOn(const QStringList& classNames)
{
    TextInputFacts facts;
    facts.firstResponder = FirstResponder{.classNames = classNames};
    return facts;
}

TextInputFacts focusOn(const char* className)
{
    return focusOn(QStringList{QLatin1String(className), QStringLiteral("NSView"), QStringLiteral("NSResponder")});
}

TEST(TextInput, NothingWithTheFocusIsNoTextInput)
{
    EXPECT_FALSE(isDirectTextInputActive({}));
    EXPECT_FALSE(isTextInputActive({}));
}

TEST(TextInput, AFocusedRowIsTextInputEvenWithoutAnActiveWindow)
{
    const TextInputFacts facts{.focusCount = 1};
    EXPECT_TRUE(isDirectTextInputActive(facts));
    EXPECT_TRUE(isTextInputActive(facts));
}

TEST(TextInput, ACountOfFocusedRowsThatFellBelowZeroIsNone)
{
    EXPECT_FALSE(isDirectTextInputActive({.focusCount = -1}));
}

TEST(TextInput, AnInputMethodsCompositionIsTextInput)
{
    const TextInputFacts facts{.hasInputContext = true};
    EXPECT_TRUE(isDirectTextInputActive(facts));
    EXPECT_TRUE(isTextInputActive(facts));
}

TEST(TextInput, TextViewsAndFieldsTakeDirectTyping)
{
    for (const char* name : {"NSTextView", "NSTextField"}) {
        EXPECT_TRUE(isDirectTextInputActive(focusOn(name))) << name;
        EXPECT_TRUE(isTextInputActive(focusOn(name))) << name;
    }
}

TEST(TextInput, WhatInheritsFromATextViewOrFieldIsOne)
{
    for (const char* name : {"NSTextView", "NSTextField"}) {
        const QStringList chain{QStringLiteral("Plain"), QLatin1String(name), QStringLiteral("NSView")};
        EXPECT_TRUE(isDirectTextInputActive(focusOn(chain))) << name;
        EXPECT_TRUE(isTextInputActive(focusOn(chain))) << name;
    }
}

TEST(TextInput, ANameThatSoundsLikeTextCountsForTheArrowsAlone)
{
    for (const char* name : {"MyTextThing", "CodeEDITOR", "searchfield", "PlainInputView", "context"}) {
        EXPECT_FALSE(isDirectTextInputActive(focusOn(name))) << name;
        EXPECT_TRUE(isTextInputActive(focusOn(name))) << name;
    }
}

TEST(TextInput, OtherNamesAreNoTextInput)
{
    for (const char* name : {"NSButton", "Slider", "CompositePlayerNSView", "Tex", "Feld"})
        EXPECT_FALSE(isTextInputActive(focusOn(name))) << name;
}

TEST(TextInput, AnInheritedNameMustBeExact)
{
    EXPECT_TRUE(isTextInputActive(focusOn({QStringLiteral("Plain"), QStringLiteral("NSText")})));
    for (const char* inherited : {"NSTextual", "nstext", "MyTextView", "NSTextFieldCell"})
        EXPECT_FALSE(isTextInputActive(focusOn({QStringLiteral("Plain"), QLatin1String(inherited)}))) << inherited;
}

TEST(TextInput, InheritingFromPlainTextCountsForTheArrowsAlone)
{
    EXPECT_FALSE(isDirectTextInputActive(focusOn({QStringLiteral("Plain"), QStringLiteral("NSText")})));
}

TEST(TextInput, OnlyAllThreeAbilitiesTogetherMakeATextControl)
{
    for (int abilities = 0; abilities < 8; ++abilities) {
        TextInputFacts facts = focusOn("Plain");
        facts.firstResponder->respondsToMoveLeft = (abilities & 1) != 0;
        facts.firstResponder->respondsToMoveRight = (abilities & 2) != 0;
        facts.firstResponder->respondsToInsertText = (abilities & 4) != 0;
        EXPECT_EQ(isTextInputActive(facts), abilities == 7) << abilities;
        EXPECT_FALSE(isDirectTextInputActive(facts)) << abilities;
    }
}

TEST(TextInput, AResponderWithoutANameIsNone)
{
    EXPECT_FALSE(isTextInputActive(focusOn(QStringList{})));
}

TEST(TextInput, TheWindowsFactsNameNothing)
{
    EXPECT_FALSE(textInputFacts(2, true).firstResponder);
    EXPECT_FALSE(isTextInputActive(textInputFacts(0, false)));
    EXPECT_TRUE(isDirectTextInputActive(textInputFacts(1, false)));
    EXPECT_TRUE(isDirectTextInputActive(textInputFacts(0, true)));
}

}
}
