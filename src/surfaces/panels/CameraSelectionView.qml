// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// The start screen: a picture of what the program is for, and the one question that comes first.
Rectangle {
    id: root

    readonly property bool isNarrow: width < 1200
    readonly property int columnWidth: isNarrow ? 440 : 520
    readonly property int columnPadding: isNarrow ? 40 : 60

    color: Theme.window

    Image {
        anchors { left: parent.left; right: column.left; top: parent.top; bottom: parent.bottom }
        source: Theme.asset("start-picture.jpg")
        fillMode: Image.PreserveAspectCrop
        clip: true
        Accessible.ignored: true

        Rectangle {
            anchors { right: parent.right; top: parent.top; bottom: parent.bottom }
            width: parent.width * 0.4
            gradient: Gradient {
                orientation: Gradient.Horizontal

                GradientStop { position: 0; color: Qt.alpha(Theme.window, 0) }
                GradientStop { position: 1; color: Theme.window }
            }
        }
    }
    Item {
        id: column

        anchors { right: parent.right; top: parent.top; bottom: parent.bottom }
        width: root.columnWidth

        Column {
            anchors.verticalCenter: parent.verticalCenter
            x: root.columnPadding
            width: parent.width - 2 * root.columnPadding

            Row {
                spacing: 14

                Image {
                    width: 48
                    height: 48
                    sourceSize: Qt.size(48 * Screen.devicePixelRatio, 48 * Screen.devicePixelRatio)
                    source: "qrc:/qt/qml/Zumeta/theme/icons/zumeta.svg"
                    Accessible.ignored: true
                }
                Text {
                    anchors.verticalCenter: parent.verticalCenter
                    text: "Zumeta"
                    color: Theme.text1
                    font: Typography.wordmark
                }
            }
            Item { width: 1; height: 52 }
            Text {
                width: parent.width
                text: Words.of("Select Camera")
                color: Theme.text1
                font: Typography.cardTitle
                wrapMode: Text.Wrap
            }
            Item { width: 1; height: 18 }
            Column {
                width: parent.width
                spacing: 12

                Repeater {
                    model: CameraChoice.names

                    SelectionRow {
                        required property int index
                        required property string modelData

                        width: parent.width
                        icon: index === 0 ? "camera-action" : "camera-360"
                        title: modelData
                        isSelected: CameraChoice.selected === index
                        onClicked: CameraChoice.select(index)
                    }
                }
            }
            Item { width: 1; height: 28 }
            ActionButton {
                objectName: "startButton"
                width: parent.width
                implicitHeight: 52
                title: Words.of("Start")
                isFilled: true
                onClicked: CameraChoice.confirm()
            }
            Item { width: 1; height: 36 }
            LanguagePicker {
                objectName: "languagePicker"
            }
        }
    }
}
