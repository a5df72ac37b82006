// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// The caret of a field. It blinks as the desktop wants it, stops where nothing else moves either, and is steady while
/// it is being moved.
Item {
    id: root

    readonly property TextInput field: parent as TextInput
    readonly property bool isShown: field !== null && field.cursorVisible && !field.selectedText
    property bool isLit: true

    visible: isShown && (isLit || !blinking.running)

    Rectangle {
        anchors.verticalCenter: parent.verticalCenter
        x: 1 // clear of the digit before it
        width: 2
        height: 17
        color: root.field ? Qt.alpha(root.field.selectionColor, 1) : "transparent" // the accent itself
    }
    Timer {
        id: blinking

        interval: Math.max(1, Qt.styleHints.cursorFlashTime / 2) // lit for one half, dark for the other
        running: root.isShown && Motion.pulses && Qt.styleHints.cursorFlashTime > 0
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
