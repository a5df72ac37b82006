// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// One of the sizes in which a movie can be made.
PressableArea {
    id: root

    required property string size
    required property string pixelSize
    required property bool isSelected
    property Accent accent: Theme.gold

    text: size
    implicitHeight: 52
    Accessible.role: Accessible.RadioButton
    Accessible.checkable: true
    Accessible.checked: isSelected

    Rectangle {
        anchors.fill: parent
        radius: Theme.radiusToggle
        color: root.isSelected ? Qt.alpha(root.accent.base, root.hovered ? 0.16 : 0.11)
             : root.pressed ? Theme.surface2Pressed : root.hovered ? Theme.surface3 : Theme.surface2

        Behavior on color { ColorAnimation { duration: Motion.colour; easing.type: Easing.OutQuad } }
    }
    Rectangle {
        anchors.fill: parent
        radius: Theme.radiusToggle
        color: "transparent"
        border.width: Theme.strokeRing
        border.color: root.accent.base
        opacity: root.isSelected ? 1 : 0

        Behavior on opacity { NumberAnimation { duration: Motion.thumb; easing.type: Easing.OutCubic } }
    }
    Rectangle {
        id: radio

        anchors { left: parent.left; leftMargin: 17; verticalCenter: parent.verticalCenter }
        width: 20
        height: 20
        radius: 10
        color: "transparent"
        border.width: Theme.strokeRing
        border.color: root.isSelected ? root.accent.base : root.hovered ? Theme.text2 : Theme.stroke3

        Rectangle {
            anchors.centerIn: parent
            width: 10
            height: 10
            radius: 5
            color: root.accent.base
            scale: root.isSelected ? 1 : 0

            Behavior on scale { NumberAnimation { duration: Motion.thumb; easing.type: Easing.OutCubic } }
        }
    }
    Text {
        anchors { left: radio.right; leftMargin: 14; verticalCenter: parent.verticalCenter }
        text: root.size
        color: Theme.text1
        font: Typography.rowTitle
    }
    Text {
        anchors { right: parent.right; rightMargin: 17; verticalCenter: parent.verticalCenter }
        text: root.pixelSize
        color: root.isSelected || root.hovered ? Theme.text2 : Theme.text3
        font: Typography.smallText
        Accessible.ignored: true
    }
    FocusRing {
        control: root
        controlRadius: Theme.radiusToggle
        border.color: root.accent.base
    }
}
