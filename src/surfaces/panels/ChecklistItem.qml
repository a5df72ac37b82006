// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Layouts
import Zumeta

/// One thing to do: waiting, next, or done.
Item {
    id: root

    property int number
    property string text
    property bool isComplete: false
    property bool isActive: false
    property Accent accent: Theme.lime
    readonly property bool isPulsing: isActive && Motion.pulses && visible

    implicitHeight: Math.max(44, label.implicitHeight + 20)
    Accessible.role: Accessible.ListItem
    Accessible.name: text
    Accessible.checkable: true
    Accessible.checked: isComplete

    Rectangle {
        anchors.fill: parent
        radius: Theme.radiusChip
        color: root.isActive ? root.accent.faint : Qt.alpha(root.accent.base, 0)

        Behavior on color { ColorAnimation { duration: Motion.colour; easing.type: Easing.OutQuad } }
    }
    Rectangle {
        id: halo

        property real spread: 4

        anchors.centerIn: circle
        width: 34
        height: 34
        radius: 17
        scale: (24 + 2 * spread) / width
        color: root.accent.base
        opacity: 0.24 - (spread - 2) * 0.04
        visible: root.isActive

        SequentialAnimation {
            running: root.isPulsing
            loops: Animation.Infinite
            alwaysRunToEnd: true // rests as it began

            NumberAnimation { target: halo; property: "spread"; to: 5; duration: Motion.pulse / 3; easing.type: Easing.OutQuad }
            NumberAnimation { target: halo; property: "spread"; to: 2; duration: Motion.pulse; easing.type: Easing.InOutQuad }
            NumberAnimation { target: halo; property: "spread"; to: 4; duration: Motion.pulse * 2 / 3; easing.type: Easing.InQuad }
        }
    }
    Rectangle {
        id: circle

        x: 10
        anchors.verticalCenter: parent.verticalCenter
        width: 24
        height: 24
        radius: 12
        color: root.isComplete ? root.accent.base : "transparent"
        border.width: root.isComplete ? 0 : Theme.strokeRing
        border.color: root.isActive ? root.accent.base : Theme.stroke3

        Text {
            anchors.centerIn: parent
            text: root.number
            color: root.isActive ? root.accent.base : Theme.text3
            font: Typography.captionStrong
            visible: !root.isComplete
        }
        Icon {
            anchors.centerIn: parent
            name: "checkmark"
            size: 14
            color: root.accent.ink
            visible: root.isComplete
        }
    }
    Text {
        id: label

        anchors { left: circle.right; leftMargin: 12; right: parent.right; rightMargin: 10; verticalCenter: parent.verticalCenter }
        text: root.text
        color: root.isComplete ? Theme.text2 : root.isActive ? Theme.text1 : Theme.text3
        font: root.isActive && !root.isComplete ? Typography.bodyStrong : Typography.body
        wrapMode: Text.Wrap
    }
}
