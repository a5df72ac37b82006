// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// A face in the step's accent inside a ring; both are quiet while there is nothing to play.
PressableArea {
    id: root

    property string icon
    property bool hasMedia: true
    property Accent accent: Theme.lime

    implicitWidth: 44
    implicitHeight: 44
    scale: pressed ? 0.95 : 1

    Behavior on scale { NumberAnimation { duration: Motion.tap; easing.type: Easing.OutQuad } }

    // A picture, because a border has whole widths only.
    Icon {
        name: "ring"
        size: 44
        color: root.hasMedia ? root.accent.base : "white"
        opacity: root.hasMedia ? (root.hovered ? 1 : 0.55) : root.hovered ? Theme.stroke3.a : Theme.stroke2.a

        Behavior on opacity { NumberAnimation { duration: Motion.colour; easing.type: Easing.OutQuad } }
    }
    Rectangle {
        anchors.centerIn: parent
        objectName: "playButtonFace"
        width: 36
        height: 36
        radius: 18
        color: !root.hasMedia ? (root.pressed ? Theme.surface2Pressed : Theme.surface2)
             : root.pressed ? root.accent.pressed : root.hovered ? root.accent.hover : root.accent.base

        Behavior on color { ColorAnimation { duration: Motion.colour; easing.type: Easing.OutQuad } }
    }
    Icon {
        anchors.centerIn: parent
        name: root.icon
        size: 18
        color: root.hasMedia ? root.accent.ink : Theme.text3
    }
    FocusRing {
        control: root
        controlRadius: 22
        border.color: root.accent.base
    }
}
