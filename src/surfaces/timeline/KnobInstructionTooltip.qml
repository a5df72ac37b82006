// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// What to do with the knob above it, at which it points.
Item {
    id: root

    property string text
    property Accent accent: Theme.lime

    width: label.implicitWidth + 24
    height: 26
    Accessible.role: Accessible.StaticText
    Accessible.name: text

    // The upper half of a square on its corner: 12 wide and 6 high.
    Rectangle {
        anchors { horizontalCenter: parent.horizontalCenter; verticalCenter: parent.top }
        width: 6 * Math.SQRT2
        height: width
        rotation: 45
        antialiasing: true
        color: root.accent.base
    }
    Rectangle {
        anchors.fill: parent
        radius: height / 2
        color: root.accent.base
    }
    Text {
        id: label

        anchors.centerIn: parent
        text: root.text
        color: root.accent.ink
        font: Typography.hint
    }
}
