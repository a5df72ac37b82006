// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Layouts
import Zumeta

/// Which files are at work, and the proxies that are being made of them.
Rectangle {
    id: root

    readonly property real chipsWidth: aboveFile.Layout.maximumWidth + belowFile.Layout.maximumWidth

    objectName: "fileBar"
    implicitHeight: 44
    color: Theme.window

    RowLayout {
        anchors { fill: parent; leftMargin: 16; rightMargin: 16 }
        spacing: 8

        FileStatusView {
            id: aboveFile

            objectName: "aboveFile"
            Layout.fillWidth: true
            Layout.maximumWidth: Math.min(300, implicitWidth)
            title: Words.of("Above Video")
            file: FilesModel.above
            accent: Theme.lime
        }
        FileStatusView {
            id: belowFile

            objectName: "belowFile"
            Layout.fillWidth: true
            Layout.maximumWidth: Math.min(300, implicitWidth)
            title: Words.of("Below Video")
            file: FilesModel.below
            accent: Theme.blue
        }
        Item { Layout.fillWidth: true }
        ProxyStatusView {
            id: proxies

            isCompact: root.width < 600 || root.chipsWidth + fullWidth + 32 + 2 * 8 > root.width
        }
    }
}
