// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// How far the export is, and the way to give it up.
Column {
    id: root

    readonly property Accent accent: Theme.accentOf(WindowModel.step)

    spacing: 22

    ProgressRing {
        objectName: "exportRing"
        anchors.horizontalCenter: parent.horizontalCenter
        width: 148
        height: 148
        strokeWidth: 8
        color: root.accent.base
        trackColor: Theme.stroke2
        progress: ExportStatusModel.progress
        Accessible.role: Accessible.ProgressBar
        Accessible.name: label.text + " " + percent.text

        Behavior on progress { NumberAnimation { duration: Motion.progress } }

        Text {
            id: percent

            objectName: "exportPercent"
            anchors.centerIn: parent
            text: ExportStatusModel.percent + "%"
            color: Theme.text1
            font: Typography.percent
        }
    }
    Text {
        id: label

        anchors.horizontalCenter: parent.horizontalCenter
        text: Words.of("Exporting...")
        color: Theme.text1
        font: Typography.rowTitle
    }
    ActionButton {
        objectName: "exportCancel"
        anchors.horizontalCenter: parent.horizontalCenter
        width: Math.max(implicitWidth, 102)
        implicitHeight: 40
        title: Words.of("Cancel")
        isNeutral: true
        accent: root.accent
        onClicked: ExportStatusModel.cancel()
    }
}
