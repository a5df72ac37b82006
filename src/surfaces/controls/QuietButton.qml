// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// For what is seldom wanted: words that become a button under the pointer.
PressableArea {
    id: root

    property string title
    property Accent accent: Theme.lime

    text: title
    implicitWidth: label.implicitWidth + 28
    implicitHeight: Math.max(34, label.implicitHeight + 12)
    scale: pressed ? Theme.pressedScale : 1

    Behavior on scale { NumberAnimation { duration: Motion.tap; easing.type: Easing.OutQuad } }

    Rectangle {
        anchors.fill: parent
        radius: Theme.radiusChip
        color: root.pressed ? Theme.surface2Pressed : root.hovered ? Theme.surface2 : "transparent"

        Behavior on color { ColorAnimation { duration: Motion.colour; easing.type: Easing.OutQuad } }
    }
    Text {
        id: label

        anchors.centerIn: parent
        width: Math.min(implicitWidth, root.width - 28)
        text: root.title
        color: !root.enabled ? Theme.textOff : root.hovered ? Theme.text1 : Theme.text2
        font: Typography.smallStrong
        wrapMode: Text.Wrap
        horizontalAlignment: Text.AlignHCenter
    }
    FocusRing {
        control: root
        controlRadius: Theme.radiusChip
        border.color: root.accent.base
    }
}
