// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/keys/KeyDecision.h"

#include <gtest/gtest.h>

namespace zumeta {
namespace {

constexpr Qt::Key kOncePerPress[] = {Qt::Key_M, Qt::Key_I,     Qt::Key_O,         Qt::Key_J,     Qt::Key_K,
                                     Qt::Key_L, Qt::Key_Space, Qt::Key_Backspace, Qt::Key_Delete};
constexpr Qt::Key kArrows[] = {Qt::Key_Left, Qt::Key_Right, Qt::Key_Down, Qt::Key_Up};

QString postedBy(const PressedKey& pressed, const TextInputFacts& focus = {}, const ModalGate& gate = {})
{
    const KeyDecision decision = decideKey(pressed, focus, gate);
    return decision.notification ? decision.notification->name : QString();
}

TEST(KeyDecision, AKeyThatActsIsConsumed)
{
    const KeyDecision decision = decideKey({.key = Qt::Key_M}, {}, {});
    EXPECT_TRUE(decision.isConsumed);
    EXPECT_EQ(decision.notification->name, QStringLiteral("com.zumetaapp.markSyncPoint"));
}

TEST(KeyDecision, AKeyThatNoRuleKnowsIsPassedOn)
{
    EXPECT_EQ(decideKey({.key = Qt::Key_A}, {}, {}), KeyDecision{});
    EXPECT_EQ(decideKey({.key = Qt::Key_Escape}, {}, {}), KeyDecision{});
    EXPECT_EQ(decideKey({.key = Qt::Key_Return}, {}, {}), KeyDecision{});
}

TEST(KeyDecision, AKeyThatTheRuleLeavesToAFieldIsPassedOn)
{
    EXPECT_EQ(decideKey({.key = Qt::Key_M}, textInputFacts(1, true), {}), KeyDecision{});
    EXPECT_EQ(decideKey({.key = Qt::Key_Up}, textInputFacts(1, true), {}), KeyDecision{});
}

TEST(KeyDecision, SwitchesActOncePerPressAndTheirRepeatsAreConsumed)
{
    for (const Qt::Key key : kOncePerPress) {
        EXPECT_TRUE(decideKey({.key = key}, {}, {}).notification) << key;
        const KeyDecision repeated = decideKey({.key = key, .isAutoRepeat = true}, {}, {});
        EXPECT_TRUE(repeated.isConsumed) << key;
        EXPECT_FALSE(repeated.notification) << key;
    }
}

TEST(KeyDecision, ArrowsRepeat)
{
    for (const Qt::Key key : kArrows) {
        const KeyDecision first = decideKey({.key = key}, {}, {});
        EXPECT_TRUE(first.notification) << key;
        EXPECT_EQ(decideKey({.key = key, .isAutoRepeat = true}, {}, {}), first) << key;
    }
}

TEST(KeyDecision, AFocusedValueGoesOnWhileAnArrowIsHeld)
{
    EXPECT_EQ(postedBy({.key = Qt::Key_Left, .isAutoRepeat = true}, textInputFacts(1, true)),
              QStringLiteral("com.zumetaapp.adjustFocusedNumericField"));
}

TEST(KeyDecision, UndoAndRedoRepeat)
{
    EXPECT_EQ(postedBy({.key = Qt::Key_Z, .modifiers = Qt::ControlModifier, .isAutoRepeat = true}),
              QStringLiteral("com.zumetaapp.undoStepEdit"));
    EXPECT_EQ(postedBy({.key = Qt::Key_Z, .modifiers = Qt::ControlModifier | Qt::ShiftModifier, .isAutoRepeat = true}),
              QStringLiteral("com.zumetaapp.redoStepEdit"));
}

TEST(KeyDecision, MetaSpaceStartsAndCtrlSpaceGoesToTheInputMethod)
{
    EXPECT_EQ(postedBy({.key = Qt::Key_Space, .modifiers = Qt::MetaModifier}),
              QStringLiteral("com.zumetaapp.togglePlaybackShortcut"));
    EXPECT_EQ(decideKey({.key = Qt::Key_Space, .modifiers = Qt::ControlModifier}, {}, {}), KeyDecision{});
}

TEST(KeyDecision, BackspaceAndDeleteBothDelete)
{
    for (const Qt::Key key : {Qt::Key_Backspace, Qt::Key_Delete})
        EXPECT_EQ(postedBy({.key = key}), QStringLiteral("com.zumetaapp.deleteSelectedTrimMarker"));
}

TEST(KeyDecision, ShortcutsOfTheMenusArePassedOn)
{
    for (const Qt::Key key : {Qt::Key_S, Qt::Key_O, Qt::Key_W, Qt::Key_X, Qt::Key_C, Qt::Key_V, Qt::Key_A, Qt::Key_M})
        EXPECT_EQ(decideKey({.key = key, .modifiers = Qt::ControlModifier}, {}, {}), KeyDecision{}) << key;
}

TEST(KeyDecision, AClosedGateLetsNoKeyThrough)
{
    const ModalGate closed{.isAlertOpen = true};
    for (const Qt::Key key : kOncePerPress)
        EXPECT_EQ(decideKey({.key = key}, {}, closed), KeyDecision{}) << key;
    for (const Qt::Key key : kArrows)
        EXPECT_EQ(decideKey({.key = key}, {}, closed), KeyDecision{}) << key;
    EXPECT_EQ(decideKey({.key = Qt::Key_Z, .modifiers = Qt::ControlModifier}, {}, closed), KeyDecision{});
}

}
}
