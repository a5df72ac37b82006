// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/WindowKeys.h"

#include "surfaces/keys/EscapeOrder.h"

namespace zumeta {

namespace {

/// A held key would flicker: that is consumed, and acts once.
WindowKey fullScreenKey(const PressedKey& pressed)
{
    return {pressed.isAutoRepeat ? WindowKeyAction::consume : WindowKeyAction::toggleWindowFullScreen};
}

/// As the window's own close button it acts whatever stands in front of the work.
bool isQuitKey(const PressedKey& pressed)
{
    return (pressed.modifiers & ~Qt::KeypadModifier) == Qt::ControlModifier && isLetterQ(pressed);
}

EscapeFacts escapeFacts(const WindowKeyFacts& facts)
{
    const ModalGate& gate = facts.gate;
    return {.isComposing = facts.isComposing,
            .isMenuOrPopoverOpen = gate.isMenuOpen || gate.isPopoverOpen,
            .isAlertOrSheetOpen = gate.isSheetOpen || gate.isAlertOpen || gate.isMissingMediaCardOpen ||
                                  gate.isStartScreenShown || gate.isFileDialogOpen,
            .isFieldFocused = isDirectTextInputActive(facts.focus),
            .isFullScreen = facts.isFullScreen,
            .isCompositeStep = facts.isCompositeStep};
}

}

WindowKey windowKey(const PressedKey& pressed, const WindowKeyFacts& facts)
{
    if (pressed.key == Qt::Key_F11 && !(pressed.modifiers & ~Qt::KeypadModifier))
        return fullScreenKey(pressed);
    if (isQuitKey(pressed))
        return {pressed.isAutoRepeat ? WindowKeyAction::consume : WindowKeyAction::quit};
    if (const std::optional<KeyEvent> event = translatedKey(pressed);
        event && escapeTarget(*event, escapeFacts(facts)) == EscapeTarget::fullScreen)
        return {WindowKeyAction::leaveFullScreen}; // what else it ends, ends by itself
    KeyDecision decision = decideKey(pressed, facts.focus, facts.gate);
    if (!decision.isConsumed)
        return {};
    if (!decision.notification)
        return {WindowKeyAction::consume};
    return {WindowKeyAction::post, std::move(decision.notification)};
}

}
