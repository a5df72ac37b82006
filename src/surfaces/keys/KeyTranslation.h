// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "surfaces/keys/KeyEvent.h"

#include <Qt>
#include <cstdint>
#include <optional>

namespace zumeta {

/// A key as the desktop tells of it.
struct PressedKey {
    int key = 0; ///< Qt::Key
    Qt::KeyboardModifiers modifiers{};
    uint32_t nativeScanCode = 0;  ///< of X11 and Wayland, which count alike; 0 when it is not known
    uint32_t nativeModifiers = 0; ///< the same; the only place where AltGr shows
    bool isAutoRepeat = false;
};

/// The key by its letter, so that shortcuts follow the layout; by its place on the keyboard where the layout writes
/// another script there. Nothing for keys that no rule knows, and for letters with Alt or AltGr: those open menus and
/// type signs.
std::optional<KeyEvent> translatedKey(const PressedKey& pressed);

/// Whether it is the letter Q, found as the letters of the rules are.
bool isLetterQ(const PressedKey& pressed);

}
