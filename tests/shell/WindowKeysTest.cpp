// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/WindowKeys.h"
#include "platform/NotificationCenter.h"

#include <gtest/gtest.h>

namespace zumeta {
namespace {

using Action = WindowKeyAction;

Action actionOf(int key, const WindowKeyFacts& facts = {}, Qt::KeyboardModifiers modifiers = {})
{
    return windowKey({.key = key, .modifiers = modifiers}, facts).action;
}

WindowKeyFacts typing()
{
    return {.focus = textInputFacts(1, true)};
}

WindowKeyFacts fullScreen()
{
    return {.isFullScreen = true, .isCompositeStep = true};
}

TEST(WindowKeys, AShortcutIsPosted)
{
    const WindowKey key = windowKey({.key = Qt::Key_Right, .modifiers = Qt::ShiftModifier}, {});
    EXPECT_EQ(key.action, Action::post);
    EXPECT_EQ(key.notification, (KeyNotification{notifications::kStepFrames, {{QStringLiteral("frames"), 10}}}));
}

TEST(WindowKeys, AHeldSwitchIsConsumedAndActsNoMore)
{
    EXPECT_EQ(windowKey({.key = Qt::Key_Space, .isAutoRepeat = true}, {}), (WindowKey{Action::consume, {}}));
    EXPECT_EQ(windowKey({.key = Qt::Key_Left, .isAutoRepeat = true}, {}).action, Action::post);
}

TEST(WindowKeys, WhatIsTypedIsPassedOn)
{
    EXPECT_EQ(actionOf(Qt::Key_M, typing()), Action::passOn);
    EXPECT_EQ(actionOf(Qt::Key_Z, typing(), Qt::ControlModifier), Action::post);
    EXPECT_EQ(actionOf(Qt::Key_A), Action::passOn);
}

TEST(WindowKeys, F11ActsOnceForEachPressWhateverIsOpen)
{
    WindowKeyFacts covered;
    covered.gate.isAlertOpen = true;
    EXPECT_EQ(actionOf(Qt::Key_F11, covered), Action::toggleWindowFullScreen);
    EXPECT_EQ(windowKey({.key = Qt::Key_F11, .isAutoRepeat = true}, {}).action, Action::consume);
    EXPECT_EQ(actionOf(Qt::Key_F11, {}, Qt::ControlModifier), Action::passOn);
}

TEST(WindowKeys, CtrlQQuitsOnceForEachPressWhateverIsOpen)
{
    WindowKeyFacts covered;
    covered.gate.isAlertOpen = covered.gate.isStartScreenShown = true;
    for (const WindowKeyFacts& facts : {WindowKeyFacts(), covered, typing(), fullScreen()})
        EXPECT_EQ(actionOf(Qt::Key_Q, facts, Qt::ControlModifier), Action::quit);
    EXPECT_EQ(windowKey({.key = Qt::Key_Q, .modifiers = Qt::ControlModifier, .isAutoRepeat = true}, {}).action,
              Action::consume);
}

TEST(WindowKeys, QWithOtherModifiersIsNoWishToQuit)
{
    for (const Qt::KeyboardModifiers modifiers :
         {Qt::KeyboardModifiers(), Qt::KeyboardModifiers(Qt::AltModifier), Qt::ControlModifier | Qt::ShiftModifier,
          Qt::ControlModifier | Qt::AltModifier, Qt::ControlModifier | Qt::MetaModifier})
        EXPECT_EQ(actionOf(Qt::Key_Q, {}, modifiers), Action::passOn);
}

TEST(WindowKeys, EscapeLeavesTheFullScreenPreview)
{
    EXPECT_EQ(actionOf(Qt::Key_Escape, fullScreen()), Action::leaveFullScreen);
    EXPECT_EQ(actionOf(Qt::Key_Escape), Action::passOn);
    EXPECT_EQ(actionOf(Qt::Key_Escape, {.isFullScreen = true, .isCompositeStep = false}), Action::passOn);
}

TEST(WindowKeys, EscapeWithCommandOrOptionStaysWithTheSystem)
{
    EXPECT_EQ(actionOf(Qt::Key_Escape, fullScreen(), Qt::ControlModifier), Action::passOn);
    EXPECT_EQ(actionOf(Qt::Key_Escape, fullScreen(), Qt::AltModifier), Action::passOn);
}

TEST(WindowKeys, AHeldEscapeGoesNoFurther)
{
    EXPECT_EQ(windowKey({.key = Qt::Key_Escape, .isAutoRepeat = true}, fullScreen()).action, Action::passOn);
}

TEST(WindowKeys, EscapeEndsWhatIsNearerFirst)
{
    for (bool ModalGate::*const kind :
         {&ModalGate::isMenuOpen, &ModalGate::isPopoverOpen, &ModalGate::isSheetOpen, &ModalGate::isAlertOpen,
          &ModalGate::isMissingMediaCardOpen, &ModalGate::isStartScreenShown, &ModalGate::isFileDialogOpen}) {
        WindowKeyFacts facts = fullScreen();
        facts.gate.*kind = true;
        EXPECT_EQ(actionOf(Qt::Key_Escape, facts), Action::passOn);
    }
    WindowKeyFacts field = fullScreen();
    field.focus = textInputFacts(1, true);
    EXPECT_EQ(actionOf(Qt::Key_Escape, field), Action::passOn);
    WindowKeyFacts composing = fullScreen();
    composing.isComposing = true;
    EXPECT_EQ(actionOf(Qt::Key_Escape, composing), Action::passOn);
}

TEST(WindowKeys, NothingIsPostedWhileTheGateIsClosed)
{
    for (bool ModalGate::*const kind :
         {&ModalGate::isMenuOpen, &ModalGate::isPopoverOpen, &ModalGate::isSheetOpen, &ModalGate::isAlertOpen,
          &ModalGate::isMissingMediaCardOpen, &ModalGate::isStartScreenShown, &ModalGate::isFileDialogOpen,
          &ModalGate::isWindowInactive}) {
        WindowKeyFacts facts;
        facts.gate.*kind = true;
        for (const int key : {Qt::Key_Space, Qt::Key_M, Qt::Key_Left, Qt::Key_Delete})
            EXPECT_EQ(actionOf(key, facts), Action::passOn);
        EXPECT_EQ(actionOf(Qt::Key_Z, facts, Qt::ControlModifier), Action::passOn);
    }
}

}
}
