// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace zumeta {

/// Virtual key codes, by which the rules call keys whatever keyboard they come from. Any other number is a key that no
/// rule knows.
enum class KeyCode {
    z = 6,
    o = 31,
    i = 34,
    l = 37,
    j = 38,
    k = 40,
    m = 46,
    space = 49,
    backspace = 51,
    escape = 53,
    forwardDelete = 117,
    left = 123,
    right = 124,
    down = 125,
    up = 126
};

/// By the roles that they play in the rules: on this desktop Ctrl is `command`, Alt is `option` and Meta is `control`.
struct KeyModifiers {
    bool shift = false;
    bool control = false;
    bool option = false;
    bool command = false;
    friend bool operator==(const KeyModifiers&, const KeyModifiers&) = default;
};

struct KeyEvent {
    KeyCode keyCode{};
    KeyModifiers modifiers{};
    bool isAutoRepeat = false;
    friend bool operator==(const KeyEvent&, const KeyEvent&) = default;
};

}
