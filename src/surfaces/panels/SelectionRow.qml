// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// One of several, of which one is chosen.
PressableArea {
    id: root

    property string icon
    property string title
    property bool isSelected: false
    property Accent accent: Theme.lime

    text: title
    implicitHeight: 68
    Accessible.role: Accessible.RadioButton
    Accessible.checkable: true
    Accessible.checked: isSelected

    Rectangle {
        anchors.fill: parent
        radius: Theme.radiusRow
        color: root.isSelected ? "transparent" : Theme.surface1
        border.width: root.isSelected ? Theme.strokeRing : Theme.strokeEdge
        border.color: root.isSelected ? root.accent.base : root.hovered ? Theme.stroke3 : Theme.stroke2

        Rectangle {
            anchors.fill: parent
            radius: parent.radius
            color: root.pressed ? root.accent.dim : root.isSelected ? root.accent.faint
                 : root.hovered ? Theme.stroke1 : "transparent"

            Behavior on color { ColorAnimation { duration: Motion.colour } }
        }
    }
    Rectangle {
        id: iconBox

        anchors { left: parent.left; leftMargin: 18; verticalCenter: parent.verticalCenter }
        width: 40
        height: 40
        radius: Theme.radiusToggle
        color: root.isSelected ? root.accent.dim : Theme.surface2

        Icon {
            anchors.centerIn: parent
            name: root.icon
            size: 24
            color: root.isSelected ? root.accent.base : Theme.text2
        }
    }
    Text {
        anchors { left: iconBox.right; leftMargin: 16; right: radio.left; rightMargin: 16; verticalCenter: parent.verticalCenter }
        text: root.title
        color: Theme.text1
        font: Typography.rowTitle
        elide: Text.ElideRight
    }
    Rectangle {
        id: radio

        anchors { right: parent.right; rightMargin: 18; verticalCenter: parent.verticalCenter }
        width: 22
        height: 22
        radius: 11
        color: "transparent"
        border.width: Theme.strokeRing
        border.color: root.isSelected ? root.accent.base : Theme.stroke3

        Rectangle {
            anchors.centerIn: parent
            width: 12
            height: 12
            radius: 6
            color: root.accent.base
            scale: root.isSelected ? 1 : 0

            Behavior on scale { NumberAnimation { duration: Motion.thumb; easing.type: Easing.OutCubic } }
        }
    }
    FocusRing {
        control: root
        controlRadius: Theme.radiusRow
        border.color: root.accent.base
    }
}
