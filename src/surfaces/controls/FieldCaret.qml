// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// The caret of a field. It stops blinking where nothing else moves either, and is steady while it is being moved.
Item {
    id: root

    required property TextInput field
    required property color color
    property bool isLit: true

    visible: field.cursorVisible && !field.selectedText && (isLit || !blinking.running)

    Rectangle {
        anchors.verticalCenter: parent.verticalCenter
        x: 1 // clear of the digit before it
        width: 2
        height: 17
        color: root.color
    }
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
            if (blinking.running)
                blinking.restart();
        }
    }
}
