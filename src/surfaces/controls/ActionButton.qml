// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// The large button of a panel. Highlighted or filled, it is the one thing to do next.
PressableArea {
    id: root

    property string icon
    property string trailingIcon // smaller
    property string title
    property Accent accent: Theme.lime
    property bool isHighlighted: false
    property bool hasGlow: false
    property bool isFilled: false
    property bool isNeutral: false // an edge without the accent
    readonly property bool isBright: (isFilled || isHighlighted) && enabled
    readonly property color contentColor: !enabled ? Theme.textOff : isBright ? accent.ink : Theme.text1
    readonly property int roomBesideTitle: 32 + (icon ? 30 : 0) + (trailingIcon ? 26 : 0)

    text: title
    implicitWidth: Math.ceil(label.implicitWidth) + roomBesideTitle // as wide as its words, unless it is laid out otherwise
    implicitHeight: Math.max(48, label.implicitHeight + 16)
    scale: pressed ? Theme.pressedScale : 1

    Behavior on scale { NumberAnimation { duration: Motion.tap; easing.type: Easing.OutQuad } }

    BorderImage {
        anchors.fill: parent
        anchors.margins: -33
        border { left: 56; right: 56; top: 56; bottom: 56 }
        source: root.hasGlow ? Theme.asset(root.accent.glow) : ""
        visible: root.hasGlow && root.enabled

        SequentialAnimation on opacity {
            running: Motion.pulses && root.visible && root.hasGlow
            loops: Animation.Infinite
            alwaysRunToEnd: true // rests as it began

            NumberAnimation { to: 0.7; duration: Motion.pulse; easing.type: Easing.InOutQuad }
            NumberAnimation { to: 1; duration: Motion.pulse; easing.type: Easing.InOutQuad }
        }
    }
    Rectangle {
        anchors.fill: parent
        anchors.margins: -3
        radius: Theme.radiusButton + 3
        color: root.accent.halo
        visible: root.hasGlow && root.enabled
    }
    Rectangle {
        anchors.fill: parent
        radius: Theme.radiusButton
        color: !root.enabled ? Theme.surface1
             : root.isBright ? (root.pressed ? root.accent.pressed : root.hovered ? root.accent.hover : root.accent.base)
             : root.pressed ? Theme.surface2Pressed : root.hovered ? Theme.surface3 : Theme.surface2
        border.width: root.isBright ? 0 : Theme.strokeEdge
        border.color: !root.enabled ? Theme.stroke1
                    : root.isNeutral ? Theme.stroke2 : root.hovered ? root.accent.edgeHover : root.accent.edge

        Behavior on color { ColorAnimation { duration: Motion.colour; easing.type: Easing.OutQuad } }
    }
    Row {
        anchors.centerIn: parent
        spacing: 10

        Icon {
            anchors.verticalCenter: parent.verticalCenter
            name: root.icon
            color: root.isBright || !root.enabled ? root.contentColor : root.accent.base
            visible: root.icon
        }
        Text {
            id: label

            anchors.verticalCenter: parent.verticalCenter
            width: Math.min(implicitWidth, root.width - root.roomBesideTitle)
            text: root.title
            color: root.contentColor
            font: Typography.buttonLarge
            wrapMode: Text.Wrap
            maximumLineCount: 2
            horizontalAlignment: Text.AlignHCenter
        }
        Icon {
            anchors.verticalCenter: parent.verticalCenter
            name: root.trailingIcon
            size: 16
            color: root.contentColor
            visible: root.trailingIcon
        }
    }
    FocusRing {
        control: root
        border.color: root.isBright ? "white" : root.accent.base
    }
}
