// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/keys/EscapeOrder.h"

#include <gtest/gtest.h>

namespace zumeta {
namespace {

constexpr KeyEvent kEscape{KeyCode::escape};
constexpr EscapeFacts kEverything{true, true, true, true, true, true};

TEST(EscapeOrder, EndsOneThingAtATimeFromTheInnermost)
{
    EscapeFacts facts = kEverything;
    EXPECT_EQ(escapeTarget(kEscape, facts), EscapeTarget::composition);
    facts.isComposing = false;
    EXPECT_EQ(escapeTarget(kEscape, facts), EscapeTarget::menuOrPopover);
    facts.isMenuOrPopoverOpen = false;
    EXPECT_EQ(escapeTarget(kEscape, facts), EscapeTarget::alertOrSheet);
    facts.isAlertOrSheetOpen = false;
    EXPECT_EQ(escapeTarget(kEscape, facts), EscapeTarget::field);
    facts.isFieldFocused = false;
    EXPECT_EQ(escapeTarget(kEscape, facts), EscapeTarget::fullScreen);
    facts.isFullScreen = false;
    EXPECT_EQ(escapeTarget(kEscape, facts), std::nullopt);
}

TEST(EscapeOrder, AHeldKeyEndsNoSecondThing)
{
    EXPECT_EQ(escapeTarget({KeyCode::escape, {}, true}, kEverything), std::nullopt);
}

TEST(EscapeOrder, AnotherKeyEndsNothing)
{
    for (int keyCode = 0; keyCode < 128; ++keyCode) {
        if (keyCode == 53)
            continue;
        EXPECT_EQ(escapeTarget({KeyCode(keyCode)}, kEverything), std::nullopt) << keyCode;
    }
}

TEST(EscapeOrder, EscapeWithCommandOrOptionStaysWithTheSystem)
{
    EXPECT_EQ(escapeTarget({KeyCode::escape, {.command = true}}, kEverything), std::nullopt);
    EXPECT_EQ(escapeTarget({KeyCode::escape, {.option = true}}, kEverything), std::nullopt);
}

TEST(FullScreenEscape, LeavesFullScreenInStepsThreeAndFourWithoutCommandAndOption)
{
    for (int bits = 0; bits < 16; ++bits) {
        const KeyModifiers modifiers{(bits & 1) != 0, (bits & 2) != 0, (bits & 4) != 0, (bits & 8) != 0};
        EXPECT_EQ(leavesFullScreen({KeyCode::escape, modifiers}, true, true), bits < 4) << bits;
        EXPECT_FALSE(leavesFullScreen({KeyCode::escape, modifiers}, true, false)) << bits;
    }
}

TEST(FullScreenEscape, OutsideFullScreenThePressPasses)
{
    EXPECT_FALSE(leavesFullScreen(kEscape, false, true));
}

TEST(FullScreenEscape, AnotherKeyPasses)
{
    EXPECT_FALSE(leavesFullScreen({KeyCode::space}, true, true));
}

}
}
