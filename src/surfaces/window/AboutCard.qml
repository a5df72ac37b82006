// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// What this program is.
ModalCard {
    id: root

    kind: ModalState.Sheet
    visible: MenuModel.isAboutShown
    height: 2 * Math.ceil(column.implicitHeight / 2) + 2 * padding // even: centred on whole pixels

    contentItem: FocusScope {
        objectName: "aboutCard"
        focus: true
        Keys.onEscapePressed: MenuModel.closeAbout()

        Column {
            id: column

            width: parent.width
            spacing: 10

            Image {
                anchors.horizontalCenter: parent.horizontalCenter
                width: 64
                height: 64
                sourceSize: Qt.size(64 * Screen.devicePixelRatio, 64 * Screen.devicePixelRatio)
                source: "qrc:/qt/qml/Zumeta/theme/icons/zumeta.svg"
                Accessible.ignored: true
            }
            Text {
                width: parent.width
                text: "Zumeta"
                color: Theme.text1
                font: Typography.sheetTitle
                horizontalAlignment: Text.AlignHCenter
            }
            Text {
                objectName: "aboutVersion"
                width: parent.width
                text: MenuModel.version
                color: Theme.text2
                font: Typography.smallText
                horizontalAlignment: Text.AlignHCenter
            }
            Text {
                width: parent.width
                text: Words.of("Licence Line")
                color: Theme.text2
                font: Typography.smallText
                lineHeightMode: Text.FixedHeight
                lineHeight: 18 + Typography.extraLineHeight
                wrapMode: Text.Wrap
                horizontalAlignment: Text.AlignHCenter
            }
            Item { width: 1; height: 4 }
            ActionButton {
                objectName: "aboutClose"
                focus: true
                width: parent.width
                implicitHeight: 40
                title: Words.of("OK")
                isNeutral: true
                onClicked: MenuModel.closeAbout()
            }
        }
    }
}
