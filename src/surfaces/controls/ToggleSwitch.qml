// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// A switch between off and on. It shows a state and asks for the other one: whose state it is, changes it.
PressableArea {
    id: root

    property bool isOn: false
    property Accent accent: Theme.lime

    implicitWidth: 42
    implicitHeight: 24
    Accessible.role: Accessible.CheckBox
    Accessible.checkable: true
    Accessible.checked: isOn

    Rectangle {
        anchors.fill: parent
        radius: height / 2
        color: !root.enabled ? Theme.surface1
             : root.isOn ? (root.pressed ? root.accent.pressed : root.hovered ? root.accent.hover : root.accent.base)
             : root.pressed ? Theme.surface2 : Theme.surface3
        border.width: Theme.strokeEdge
        border.color: !root.enabled ? Theme.stroke1
                    : root.isOn ? "transparent" : root.hovered ? Theme.stroke3 : Theme.stroke2

        Behavior on color { ColorAnimation { duration: Motion.colour; easing.type: Easing.OutQuad } }
    }
    Rectangle {
        anchors.verticalCenter: parent.verticalCenter
        x: root.isOn ? root.width - width - 3 : 3
        width: 18
        height: 18
        radius: 9
        color: !root.enabled ? Theme.textOff : root.isOn ? root.accent.ink : Theme.knob

        Behavior on x { NumberAnimation { duration: Motion.thumb; easing.type: Easing.InOutQuad } }
    }
    FocusRing {
        control: root
        controlRadius: root.height / 2
        border.color: root.isOn ? "white" : root.accent.base
    }
}
