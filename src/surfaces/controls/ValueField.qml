// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T
import Zumeta

/// The field of a value row. What stands in it is the row's business; it only tells what happens to it.
T.TextField {
    id: root

    required property ValueRowModel row
    required property Accent accent

    function show(shown: string, caret: int) {
        text = shown;
        cursorPosition = caret;
    }

    implicitWidth: row.fieldWidth
    implicitHeight: 28
    leftPadding: 4
    rightPadding: 4
    font: Typography.field
    color: enabled ? Theme.text1 : Theme.textOff
    selectionColor: accent.selection
    selectedTextColor: Theme.text1
    horizontalAlignment: TextInput.AlignHCenter
    verticalAlignment: TextInput.AlignVCenter
    inputMethodHints: Qt.ImhPreferNumbers | Qt.ImhNoPredictiveText
    hoverEnabled: true
    clip: true
    cursorDelegate: FieldCaret {}
    background: Rectangle {
        radius: Theme.radiusField
        color: root.activeFocus ? Theme.fieldFocused : Theme.field
        border.width: root.activeFocus ? Theme.strokeFocus : Theme.strokeEdge
        border.color: !root.enabled ? Theme.stroke1
                    : root.activeFocus ? root.accent.base : root.hovered ? Theme.stroke3 : Theme.stroke2

        Behavior on border.color { ColorAnimation { duration: Motion.colour; easing.type: Easing.OutQuad } }
    }

    onTextEdited: row.typed(text, cursorPosition, inputMethodComposing)
    onInputMethodComposingChanged: row.typed(text, cursorPosition, inputMethodComposing)
    onActiveFocusChanged: row.focusChanged(activeFocus, focusReason)
    onAccepted: row.submit()
    Keys.onEscapePressed: row.escape()
    Component.onCompleted: show(row.textInput, row.textInput.length)

    Connections {
        target: root.row

        function onTextShown(shown: string, caret: int) { root.show(shown, caret); }
        function onAllSelected() { root.selectAll(); }
        function onFieldLeft() { root.focus = false; }
    }
}
