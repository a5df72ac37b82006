// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// One line across the picture in a soft band. The picked one says which video it belongs to.
Item {
    id: root

    required property real position // of the line's middle, downward
    required property Accent accent
    property bool isFixed: false
    property string label
    readonly property bool isLabelBelow: position < 24 + plate.height + 8 // no room above

    y: position - height / 2
    height: 8

    Rectangle {
        anchors.fill: parent
        color: root.accent.base
        opacity: 0.3
    }
    Rectangle {
        anchors { left: parent.left; right: parent.right; verticalCenter: parent.verticalCenter }
        height: 2
        color: root.accent.base
    }
    Rectangle {
        id: plate

        x: 16
        y: parent.height / 2 + (root.isLabelBelow ? 9 : -9 - height)
        width: text.implicitWidth + 16
        height: 18
        radius: 9
        color: Theme.linePlate
        opacity: 0.8
        visible: root.isFixed

        Text {
            id: text

            anchors.centerIn: parent
            text: root.label
            color: root.accent.base
            font: Typography.lineLabel
        }
    }
}
