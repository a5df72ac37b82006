// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// Minus or plus of a value row: it acts at the press and goes on while it is held, wherever the pointer is by then.
/// The keyboard has the arrow keys instead.
Rectangle {
    id: root

    required property string icon
    required property string text // what a screen reader says
    property bool isAtBound: false

    signal pressBegan
    signal pressEnded
    signal stepped // once, by a screen reader

    implicitWidth: 24
    implicitHeight: 24
    radius: Theme.radiusField
    color: !enabled ? Theme.surface1 : mouse.pressed ? Theme.surface2Pressed
         : mouse.containsMouse ? Theme.surface3 : Theme.surface2
    border.width: Theme.strokeEdge
    border.color: mouse.pressed || mouse.containsMouse ? Theme.stroke2 : Theme.stroke1
    Accessible.role: Accessible.Button
    Accessible.name: text
    Accessible.onPressAction: stepped()

    Behavior on color { ColorAnimation { duration: Motion.colour; easing.type: Easing.OutQuad } }

    Icon {
        anchors.centerIn: parent
        name: root.icon
        size: 12
        color: root.isAtBound || !root.enabled ? Theme.textOff : Theme.text1
    }
    MouseArea {
        id: mouse

        anchors.fill: parent
        hoverEnabled: true
        preventStealing: true
        cursorShape: Qt.PointingHandCursor
        onPressed: root.pressBegan()
        onReleased: root.pressEnded()
        onCanceled: root.pressEnded()
    }
}
