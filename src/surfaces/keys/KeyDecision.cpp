// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/keys/KeyDecision.h"

namespace zumeta {

bool repeatsWhileHeld(KeyCode keyCode)
{
    switch (keyCode) {
    case KeyCode::left:
    case KeyCode::right:
    case KeyCode::down:
    case KeyCode::up:
    case KeyCode::z:
        return true;
    default:
        return false;
    }
}

KeyDecision decideKey(const PressedKey& pressed, const TextInputFacts& focus, const ModalGate& gate)
{
    if (!gate.isOpen())
        return {};
    const std::optional<KeyEvent> event = translatedKey(pressed);
    if (!event)
        return {};
    std::optional<KeyNotification> notification = handleKeyEvent(*event, focus);
    if (!notification)
        return {};
    if (event->isAutoRepeat && !repeatsWhileHeld(event->keyCode))
        notification.reset();
    return {true, notification};
}

}
