// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// How long the exported movie will be.
Rectangle {
    id: root

    property Accent accent: Theme.gold

    implicitHeight: Math.max(40, label.implicitHeight + 16)
    radius: Theme.radiusToggle
    color: Theme.surface1
    border.width: Theme.strokeEdge
    border.color: Theme.stroke1

    Icon {
        id: clock

        anchors { left: parent.left; leftMargin: 12; verticalCenter: parent.verticalCenter }
        name: "clock"
        size: 18
        color: root.accent.base
    }
    Text {
        id: label

        anchors { left: clock.right; leftMargin: 9; right: length.left; rightMargin: 12; verticalCenter: parent.verticalCenter }
        text: Words.of("Export Duration") + " :"
        color: Theme.text2
        font: Typography.smallText
        wrapMode: Text.Wrap
    }
    Text {
        id: length

        objectName: "panelExportLength"
        anchors { right: parent.right; rightMargin: 12; verticalCenter: parent.verticalCenter }
        text: Step4Actions.exportDuration
        color: root.accent.base
        font: Typography.field
    }
}
