// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// In the picture's place while its media is missing.
Rectangle {
    objectName: "missingMediaView"
    color: Theme.missing

    Column {
        anchors.centerIn: parent
        width: parent.width - 48
        spacing: 16

        Icon {
            anchors.horizontalCenter: parent.horizontalCenter
            name: "exclamationmark-triangle-fill"
            size: 56
            color: "white"
            opacity: 0.92
        }
        Text {
            width: parent.width
            text: Words.of("Media Missing")
            color: "white"
            font: Typography.sheetTitle
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
        }
    }
}
