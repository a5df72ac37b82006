// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T
import Zumeta

/// The languages to choose from. Its parent is the button that opens it, and closes it by a second press.
ChoiceMenu {
    items: Texts.languages
    chosen: Texts.chosenLanguage
    hasDividerAfterFirst: true
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent
    onPicked: index => Texts.chooseLanguage(index)
}
