// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// A quiet button that is a symbol alone; what it does stands in its tooltip.
PressableArea {
    id: root

    property string icon
    property int iconSize: 20
    property color iconColor: Theme.text2
    property color hoverColor: Theme.surface2
    property Accent accent: Theme.lime
    property bool isOn: false // what it opens is open

    implicitWidth: 32
    implicitHeight: 32
    scale: pressed ? Theme.pressedScale : 1

    Behavior on scale { NumberAnimation { duration: Motion.tap; easing.type: Easing.OutQuad } }

    Rectangle {
        anchors.fill: parent
        radius: Theme.radiusChip
        color: root.isOn ? root.accent.dim : root.pressed ? Theme.surface2Pressed : root.hovered ? root.hoverColor : "transparent"

        Behavior on color { ColorAnimation { duration: Motion.colour; easing.type: Easing.OutQuad } }
    }
    Icon {
        anchors.centerIn: parent
        name: root.icon
        size: root.iconSize
        color: !root.enabled ? Theme.textOff : root.isOn ? root.accent.base : root.hovered ? Theme.text1 : root.iconColor
    }
    FocusRing {
        control: root
        controlRadius: Theme.radiusChip
        border.color: root.accent.base
    }
    Tooltip {
        text: root.text
        visible: root.text && (root.hovered || root.activeFocus) && !root.pressed && !root.isOn
    }
}
