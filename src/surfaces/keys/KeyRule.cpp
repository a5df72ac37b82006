// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/keys/KeyRule.h"

#include "platform/NotificationCenter.h"

namespace zumeta {

namespace {

std::optional<KeyNotification> letterRow(KeyCode keyCode)
{
    switch (keyCode) {
    case KeyCode::m:
        return KeyNotification{notifications::kMarkSyncPoint, {}};
    case KeyCode::i:
        return KeyNotification{notifications::kSetTrimPointToPlayhead,
                               {{QStringLiteral("point"), QStringLiteral("start")}}};
    case KeyCode::o:
        return KeyNotification{notifications::kSetTrimPointToPlayhead,
                               {{QStringLiteral("point"), QStringLiteral("end")}}};
    case KeyCode::backspace:
    case KeyCode::forwardDelete:
        return KeyNotification{notifications::kDeleteSelectedTrimMarker, {}};
    case KeyCode::space:
        return KeyNotification{notifications::kTogglePlaybackShortcut, {}};
    case KeyCode::k:
        return KeyNotification{notifications::kPausePlaybackShortcut, {}};
    case KeyCode::j:
        return KeyNotification{notifications::kAdjustPlaybackRateShortcut, {{QStringLiteral("faster"), false}}};
    case KeyCode::l:
        return KeyNotification{notifications::kAdjustPlaybackRateShortcut, {{QStringLiteral("faster"), true}}};
    default:
        return std::nullopt;
    }
}

/// Left and right, up and down, as -1 and +1.
int directionOf(KeyCode arrow)
{
    return arrow == KeyCode::left || arrow == KeyCode::up ? -1 : 1;
}

std::optional<KeyNotification> arrowRow(KeyCode arrow, bool isShiftDown, bool isTextInput)
{
    const bool isSideways = arrow == KeyCode::left || arrow == KeyCode::right;
    const int direction = directionOf(arrow);
    if (isTextInput) {
        if (!isSideways)
            return std::nullopt;
        return KeyNotification{
            notifications::kAdjustFocusedNumericField,
            {{QStringLiteral("direction"), direction}, {QStringLiteral("isLargeStep"), isShiftDown}}};
    }
    if (isSideways)
        return KeyNotification{notifications::kStepFrames,
                               {{QStringLiteral("frames"), direction * (isShiftDown ? 10 : 1)}}};
    return KeyNotification{notifications::kNavigateTrimMarker, {{QStringLiteral("direction"), direction}}};
}

bool isArrow(KeyCode keyCode)
{
    return keyCode == KeyCode::left || keyCode == KeyCode::right || keyCode == KeyCode::down || keyCode == KeyCode::up;
}

}

std::optional<KeyNotification> handleKeyEvent(const KeyEvent& event, const TextInputFacts& focus)
{
    const KeyModifiers& modifiers = event.modifiers;
    if (modifiers.command) {
        if (event.keyCode != KeyCode::z)
            return std::nullopt;
        return KeyNotification{modifiers.shift ? notifications::kRedoStepEdit : notifications::kUndoStepEdit, {}};
    }
    if (std::optional<KeyNotification> letter = letterRow(event.keyCode))
        return isDirectTextInputActive(focus) ? std::nullopt : letter;
    if (!isArrow(event.keyCode) || modifiers.option)
        return std::nullopt;
    return arrowRow(event.keyCode, modifiers.shift, isTextInputActive(focus));
}

bool shouldConsumeAppShortcut(const KeyEvent& event, int focusCount)
{
    if (focusCount > 0 || event.modifiers.command || event.modifiers.option)
        return false;
    return isArrow(event.keyCode) || letterRow(event.keyCode).has_value();
}

}
