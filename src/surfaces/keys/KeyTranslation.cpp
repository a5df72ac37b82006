// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/keys/KeyTranslation.h"

#include <QChar>

namespace zumeta {

namespace {

/// Where X keymaps put the level that AltGr reaches.
constexpr uint32_t kMod5 = 0x80;

/// What Shift and I make on a Turkish keyboard: an I that keeps its dot.
constexpr int kTurkishI = 0x0130;

std::optional<KeyCode> letterByKey(int key)
{
    switch (key) {
    case Qt::Key_Z:
        return KeyCode::z;
    case Qt::Key_O:
        return KeyCode::o;
    case Qt::Key_I:
    case kTurkishI:
        return KeyCode::i;
    case Qt::Key_L:
        return KeyCode::l;
    case Qt::Key_J:
        return KeyCode::j;
    case Qt::Key_K:
        return KeyCode::k;
    case Qt::Key_M:
        return KeyCode::m;
    default:
        return std::nullopt;
    }
}

/// Where the letters stand on a Latin keyboard, in X11's codes: the kernel's plus 8.
std::optional<KeyCode> letterByPlace(uint32_t nativeScanCode)
{
    switch (nativeScanCode) {
    case 52:
        return KeyCode::z;
    case 32:
        return KeyCode::o;
    case 31:
        return KeyCode::i;
    case 46:
        return KeyCode::l;
    case 44:
        return KeyCode::j;
    case 45:
        return KeyCode::k;
    case 58:
        return KeyCode::m;
    default:
        return std::nullopt;
    }
}

/// Signs that Latin layouts have on these places too (a comma, a dead accent) are no reason to go by the place: such
/// a layout has the letter elsewhere.
bool isOfAnotherScript(int key)
{
    if (key == 0 || key == Qt::Key_unknown)
        return true;
    if (key < 0 || key > int(QChar::LastValidCodePoint)) // Qt's numbers for keys without a character
        return false;
    const QChar::Script script = QChar::script(char32_t(key));
    return script != QChar::Script_Latin && script != QChar::Script_Common && script != QChar::Script_Inherited &&
           script != QChar::Script_Unknown;
}

std::optional<KeyCode> letterOf(const PressedKey& pressed)
{
    return isOfAnotherScript(pressed.key) ? letterByPlace(pressed.nativeScanCode) : letterByKey(pressed.key);
}

std::optional<KeyCode> otherKeyOf(int key)
{
    switch (key) {
    case Qt::Key_Space:
        return KeyCode::space;
    case Qt::Key_Backspace:
        return KeyCode::backspace;
    case Qt::Key_Delete:
        return KeyCode::forwardDelete;
    case Qt::Key_Escape:
        return KeyCode::escape;
    case Qt::Key_Left:
        return KeyCode::left;
    case Qt::Key_Right:
        return KeyCode::right;
    case Qt::Key_Down:
        return KeyCode::down;
    case Qt::Key_Up:
        return KeyCode::up;
    default:
        return std::nullopt;
    }
}

KeyModifiers modifiersOf(Qt::KeyboardModifiers modifiers)
{
    return {.shift = modifiers.testFlag(Qt::ShiftModifier),
            .control = modifiers.testFlag(Qt::MetaModifier),
            .option = modifiers.testFlag(Qt::AltModifier),
            .command = modifiers.testFlag(Qt::ControlModifier)};
}

bool isAltGrDown(const PressedKey& pressed)
{
    return (pressed.nativeModifiers & kMod5) != 0 || pressed.modifiers.testFlag(Qt::GroupSwitchModifier);
}

}

bool isLetterQ(const PressedKey& pressed)
{
    constexpr uint32_t kPlace = 24;
    return isOfAnotherScript(pressed.key) ? pressed.nativeScanCode == kPlace : pressed.key == Qt::Key_Q;
}

std::optional<KeyEvent> translatedKey(const PressedKey& pressed)
{
    const KeyModifiers modifiers = modifiersOf(pressed.modifiers);
    if (const std::optional<KeyCode> other = otherKeyOf(pressed.key))
        return KeyEvent{*other, modifiers, pressed.isAutoRepeat};
    const std::optional<KeyCode> letter = letterOf(pressed);
    // With Ctrl, Alt opens no menu: the rule has its say.
    const bool opensMenu = modifiers.option && !modifiers.command;
    if (!letter || opensMenu || isAltGrDown(pressed))
        return std::nullopt;
    return KeyEvent{*letter, modifiers, pressed.isAutoRepeat};
}

}
