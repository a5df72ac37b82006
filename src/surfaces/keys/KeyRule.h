// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "surfaces/keys/KeyEvent.h"
#include "surfaces/keys/TextInput.h"

#include <QString>
#include <QVariantMap>
#include <optional>

namespace zumeta {

/// What a key asks of whoever observes its name.
struct KeyNotification {
    QString name;
    QVariantMap userInfo;
    friend bool operator==(const KeyNotification&, const KeyNotification&) = default;
};

/// The one rule of all shortcuts outside the menus. With a notification the key is consumed once that is posted; with
/// none it is passed on untouched. Undo and redo act in a text field too, and there mean the step edits.
std::optional<KeyNotification> handleKeyEvent(const KeyEvent& event, const TextInputFacts& focus);

/// The keys that are kept from the desktop's own handling of keys that nobody wants, while no field has the focus.
bool shouldConsumeAppShortcut(const KeyEvent& event, int focusCount);

}
