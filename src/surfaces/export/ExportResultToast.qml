// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// How the last export has ended. It goes by a press, or by itself after the session's time.
Item {
    id: root

    readonly property bool isError: ExportStatusModel.isError

    objectName: "exportToast"
    width: 380
    height: Math.max(64, words.implicitHeight + 24)
    opacity: ExportStatusModel.hasNotification ? 1 : 0
    visible: opacity > 0
    enabled: ExportStatusModel.hasNotification
    Accessible.role: Accessible.AlertMessage
    Accessible.name: ExportStatusModel.title
    Accessible.description: ExportStatusModel.message

    Behavior on opacity { NumberAnimation { duration: Motion.smooth; easing.type: Easing.OutCubic } }

    transform: Translate { y: -12 * (1 - root.opacity) }

    Shadow {}
    Rectangle {
        anchors.fill: parent
        radius: Theme.radiusRow
        color: Theme.surface1
        border.width: Theme.strokeEdge
        border.color: root.isError ? Qt.alpha(Theme.error, 0.5) : Theme.stroke2
    }
    MouseArea {
        anchors.fill: parent
        hoverEnabled: true
        cursorShape: Qt.PointingHandCursor
        onClicked: ExportStatusModel.dismiss()
    }
    Icon {
        id: icon

        anchors { left: parent.left; leftMargin: 17; verticalCenter: parent.verticalCenter }
        size: 26
        name: root.isError ? "xmark-circle-fill" : "checkmark-circle-fill"
        color: root.isError ? Theme.error : Theme.success
    }
    Column {
        id: words

        anchors { left: icon.right; leftMargin: 12; right: close.left; rightMargin: 8; verticalCenter: parent.verticalCenter }
        spacing: 2

        Text {
            width: parent.width
            text: ExportStatusModel.title
            color: Theme.text1
            font: Typography.bodyStrong
            wrapMode: Text.Wrap
        }
        // A file's name is known by its beginning and its end; a reason is read whole.
        Text {
            width: parent.width
            text: ExportStatusModel.message
            color: Theme.text2
            font: Typography.smallText
            elide: root.isError ? Text.ElideNone : Text.ElideMiddle
            wrapMode: root.isError ? Text.Wrap : Text.NoWrap
        }
    }
    IconButton {
        id: close

        objectName: "exportToastClose"
        anchors { right: parent.right; rightMargin: 14; verticalCenter: parent.verticalCenter }
        icon: "xmark"
        iconSize: 16
        text: Words.of("Close")
        onClicked: ExportStatusModel.dismiss()
    }
}
