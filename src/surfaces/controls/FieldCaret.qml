// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// The caret of a field, in the colour of the step. It stops blinking where nothing else moves either, and is steady
/// while it is being moved.
Rectangle {
    id: root

    required property TextInput field
    property bool isLit: true

    width: 2
    visible: field.cursorVisible && !field.selectedText && (isLit || !blinking.running)

    Timer {
        id: blinking

        interval: Qt.styleHints.cursorFlashTime / 2
        running: root.field.cursorVisible && interval > 0 && Motion.pulses
        repeat: true
        onTriggered: root.isLit = !root.isLit
    }
    Connections {
        target: root.field

        function onCursorPositionChanged() {
            root.isLit = true;
            blinking.restart();
        }
    }
}
