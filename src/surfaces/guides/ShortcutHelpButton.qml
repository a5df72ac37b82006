// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// Opens the list of the step's shortcuts, and closes it again. It stands in the title row of the step, which the list
/// keeps to.
PressableArea {
    id: root

    required property int step
    property Accent accent: Theme.gold
    property bool isPresented: false

    objectName: "shortcutHelpButton"
    text: Words.of("Shortcut Help")
    implicitWidth: 28
    implicitHeight: 28
    Accessible.checkable: true
    Accessible.checked: isPresented
    onClicked: isPresented = !isPresented

    Rectangle {
        anchors.fill: parent
        radius: 14
        color: root.isPresented ? root.accent.dim : root.pressed ? Theme.surface2Pressed : root.hovered ? Theme.surface2 : "transparent"

        Behavior on color { ColorAnimation { duration: Motion.colour; easing.type: Easing.OutQuad } }
    }
    Icon {
        anchors.centerIn: parent
        name: "questionmark-circle-fill"
        color: root.isPresented ? root.accent.base : root.hovered ? Theme.text1 : Theme.text3
    }
    FocusRing {
        control: root
        controlRadius: 14
        border.color: root.accent.base
    }
    Tooltip {
        text: root.text
        visible: (root.hovered || root.activeFocus) && !root.pressed && !root.isPresented
    }
    ShortcutHelpPopover {
        parent: root.parent
        button: root
        step: root.step
        accent: root.accent
        visible: root.isPresented
        onClosed: root.isPresented = false
    }
}
