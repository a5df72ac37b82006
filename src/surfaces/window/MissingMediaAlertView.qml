// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// A project's videos are not where they were: the ways on from there.
ModalCard {
    id: root

    readonly property Accent accent: Theme.accentOf(WindowModel.step)

    kind: ModalState.MissingMediaCard
    cardWidth: 420
    padding: 28
    topPadding: 30
    bottomPadding: 22
    visible: MissingMediaModel.isShown
    height: 2 * Math.ceil((column.implicitHeight + topPadding + bottomPadding) / 2) // even, so that edges are sharp
    onAboutToShow: (MissingMediaModel.showAboveReconnect ? above : below).focus = true

    contentItem: FocusScope {
        objectName: "missingMediaCard"
        focus: true

        Icon {
            anchors { right: parent.right; rightMargin: -12; top: parent.top; topMargin: -15 }
            name: "questionmark-circle-fill"
            size: 22
            color: Theme.text2
        }
        Column {
            id: column

            width: parent.width

            Rectangle {
                anchors.horizontalCenter: parent.horizontalCenter
                width: 64
                height: 64
                radius: 32
                color: Qt.alpha(Theme.error, 0.14)

                Icon {
                    anchors.centerIn: parent
                    name: "exclamationmark-triangle-fill"
                    size: 32
                    color: Theme.error
                }
            }
            Item { width: 1; height: 18 }
            Text {
                width: parent.width
                text: Words.of("Alert.MissingFiles.Title")
                color: Theme.text1
                font: Typography.sheetTitle
                horizontalAlignment: Text.AlignHCenter
                wrapMode: Text.Wrap
                Accessible.role: Accessible.Heading
                Accessible.name: text
            }
            Item { width: 1; height: 6 }
            Text {
                width: parent.width
                text: Words.of("Alert.MissingFiles.Message")
                color: Theme.text2
                font: Typography.body
                horizontalAlignment: Text.AlignHCenter
                wrapMode: Text.Wrap
            }
            Item { width: 1; height: 20 }
            Column {
                width: parent.width
                spacing: 10

                ActionButton {
                    id: above

                    objectName: "reconnectAbove"
                    width: parent.width
                    title: Words.of("Alert.Action.ReconnectAboveVideo")
                    isFilled: true
                    accent: root.accent
                    visible: MissingMediaModel.showAboveReconnect
                    onVisibleChanged: if (!visible) below.focus = true
                    onClicked: MissingMediaModel.reconnectAbove()
                }
                ActionButton {
                    id: below

                    objectName: "reconnectBelow"
                    width: parent.width
                    title: Words.of("Alert.Action.ReconnectBelowVideo")
                    isFilled: !MissingMediaModel.showAboveReconnect
                    accent: root.accent
                    visible: MissingMediaModel.showBelowReconnect
                    onClicked: MissingMediaModel.reconnectBelow()
                }
            }
            Item { width: 1; height: 14 }
            QuietButton {
                objectName: "missingMediaStartOver"
                anchors.horizontalCenter: parent.horizontalCenter
                width: Math.min(implicitWidth, parent.width)
                title: Words.of("Alert.Action.StartOver")
                accent: root.accent
                onClicked: MissingMediaModel.reset()
            }
        }
    }
}
