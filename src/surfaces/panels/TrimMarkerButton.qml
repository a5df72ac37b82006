// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// A tool for the range and its markers. A dimmed one has nothing to do where the playhead is.
PressableArea {
    id: root

    property string title
    property string icon
    property string trailingIcon
    property bool isDimmed: false
    property Accent accent: Theme.gold
    readonly property bool looksHovered: hovered && !isDimmed

    text: title
    implicitWidth: label.implicitWidth + 20 + 25
    implicitHeight: Math.max(44, label.implicitHeight + 12)
    opacity: isDimmed ? 0.45 : 1
    scale: pressed && !isDimmed ? Theme.pressedScale : 1

    Behavior on scale { NumberAnimation { duration: Motion.tap; easing.type: Easing.OutQuad } }

    Rectangle {
        anchors.fill: parent
        radius: Theme.radiusToggle
        color: root.looksHovered && root.pressed ? Theme.surface2Pressed : root.looksHovered ? Theme.surface3 : Theme.surface2
        border.width: Theme.strokeEdge
        border.color: root.looksHovered ? Theme.stroke2 : Theme.stroke1

        Behavior on color { ColorAnimation { duration: Motion.colour; easing.type: Easing.OutQuad } }
    }
    Row {
        anchors.centerIn: parent
        spacing: 7

        Icon {
            anchors.verticalCenter: parent.verticalCenter
            name: root.icon
            size: 18
            color: root.accent.base
            visible: root.icon
        }
        Text {
            id: label

            anchors.verticalCenter: parent.verticalCenter
            width: Math.min(implicitWidth, root.width - 20 - 25)
            text: root.title
            color: Theme.text1
            font: Typography.smallStrong
            wrapMode: Text.Wrap
            horizontalAlignment: Text.AlignHCenter
        }
        Icon {
            anchors.verticalCenter: parent.verticalCenter
            name: root.trailingIcon
            size: 18
            color: root.accent.base
            visible: root.trailingIcon
        }
    }
    FocusRing {
        control: root
        controlRadius: Theme.radiusToggle
        border.color: root.accent.base
    }
}
