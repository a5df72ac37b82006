// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// A way to play that is on or off.
PressableArea {
    id: root

    property string title
    property string icon
    property bool isOn: false
    property Accent accent: Theme.gold

    text: title
    implicitHeight: Math.max(44, label.implicitHeight + 16)
    scale: pressed ? Theme.pressedScale : 1
    Accessible.role: Accessible.CheckBox
    Accessible.checkable: true
    Accessible.checked: isOn

    Behavior on scale { NumberAnimation { duration: Motion.tap; easing.type: Easing.OutQuad } }

    Rectangle {
        anchors.fill: parent
        radius: Theme.radiusToggle
        color: root.isOn ? Qt.alpha(root.accent.base, root.pressed ? 0.08 : root.hovered ? 0.2 : 0.13)
             : root.pressed ? Theme.surface2Pressed : root.hovered ? Theme.surface2 : Theme.surface1
        border.width: Theme.strokeEdge
        border.color: root.isOn ? Qt.alpha(root.accent.base, 0.6) : Theme.stroke2

        Behavior on color { ColorAnimation { duration: Motion.colour; easing.type: Easing.OutQuad } }
    }
    Icon {
        id: symbol

        anchors { left: parent.left; leftMargin: 12; verticalCenter: parent.verticalCenter }
        name: root.icon
        size: 18
        color: root.isOn ? root.accent.base : Theme.text3
    }
    Text {
        id: label

        anchors { left: symbol.right; leftMargin: 10; right: dot.left; rightMargin: 8; verticalCenter: parent.verticalCenter }
        text: root.title
        color: root.isOn ? Theme.text1 : Theme.text2
        font: Typography.smallStrong
        wrapMode: Text.Wrap
    }
    Rectangle {
        id: dot

        anchors { right: parent.right; rightMargin: 12; verticalCenter: parent.verticalCenter }
        width: 8
        height: 8
        radius: 4
        color: root.isOn ? root.accent.base : "transparent"
        border.width: root.isOn ? 0 : Theme.strokeEdge
        border.color: Theme.stroke3
    }
    FocusRing {
        control: root
        controlRadius: Theme.radiusToggle
        border.color: root.accent.base
    }
}
