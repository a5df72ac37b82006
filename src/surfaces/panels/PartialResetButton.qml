// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// Begins a part of the work anew. Quiet, because it is rarely wanted.
PressableArea {
    id: root

    property string title
    property string icon: "arrow-counterclockwise"
    property Accent accent: Theme.lime
    property bool takesAllAway: false

    text: title
    implicitWidth: label.implicitWidth + 24 + (icon ? 24 : 0)
    implicitHeight: Math.max(34, label.implicitHeight + 12)
    scale: pressed ? Theme.pressedScale : 1

    Behavior on scale { NumberAnimation { duration: Motion.tap; easing.type: Easing.OutQuad } }

    Rectangle {
        anchors.fill: parent
        radius: Theme.radiusChip
        color: !root.hovered ? "transparent"
             : root.takesAllAway ? Qt.alpha(Theme.error, root.pressed ? 0.2 : 0.12)
             : root.pressed ? Theme.surface2Pressed : Theme.surface2

        Behavior on color { ColorAnimation { duration: Motion.colour; easing.type: Easing.OutQuad } }
    }
    Row {
        anchors.centerIn: parent
        spacing: 8

        Icon {
            anchors.verticalCenter: parent.verticalCenter
            name: root.icon
            size: 16
            color: root.hovered ? Theme.text1 : Theme.text3
            visible: root.icon
        }
        Text {
            id: label

            anchors.verticalCenter: parent.verticalCenter
            width: Math.min(implicitWidth, root.width - 24 - (root.icon ? 24 : 0))
            text: root.title
            color: !root.hovered ? Theme.text2 : root.takesAllAway ? Theme.error : Theme.text1
            font: Typography.smallStrong
            wrapMode: Text.Wrap
            horizontalAlignment: Text.AlignHCenter
        }
    }
    FocusRing {
        control: root
        controlRadius: Theme.radiusChip
        anchors.margins: 0
        border.color: root.accent.base
    }
}
