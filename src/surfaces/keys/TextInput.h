// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QStringList>
#include <optional>

namespace zumeta {

/// What has the keyboard focus, told by names and abilities.
struct FirstResponder {
    QStringList classNames{}; ///< its own first, then those that it inherits from
    bool respondsToMoveLeft = false;
    bool respondsToMoveRight = false;
    bool respondsToInsertText = false;
};

/// Everything that tells whether the user is typing.
struct TextInputFacts {
    int focusCount = 0;           ///< numeric rows whose field has the focus
    bool hasInputContext = false; ///< something takes the input method's text, a composition included
    /// Of the active window; nothing without such a window.
    std::optional<FirstResponder> firstResponder{};
};

/// The facts as a Qt Quick window knows them. What has the focus is left unnamed on purpose: the names that QML makes
/// up for its types ("...ContextMenu...") would count as text.
TextInputFacts textInputFacts(int focusCount, bool focusObjectTakesInput);

/// Letters, Space and Delete belong to what is being typed.
bool isDirectTextInputActive(const TextInputFacts& facts);
/// The arrows belong to a text control: true in more cases.
bool isTextInputActive(const TextInputFacts& facts);

}
