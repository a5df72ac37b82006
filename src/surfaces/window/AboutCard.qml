// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// What this program is, and the terms under which it and what it uses are passed on.
ModalCard {
    id: root

    kind: ModalState.Sheet
    visible: MenuModel.isAboutShown
    cardWidth: 620
    height: Math.min(620, parent ? 2 * Math.floor((parent.height - 64) / 2) : 620) // even: centred on whole pixels

    contentItem: FocusScope {
        objectName: "aboutCard"
        focus: true
        Keys.onEscapePressed: MenuModel.closeAbout()

        Loader { // the texts are long, and seldom wanted
            anchors.fill: parent
            focus: true
            active: root.visible

            sourceComponent: FocusScope {
                focus: true

                Image {
                    id: sign

                    width: 64
                    height: 64
                    sourceSize: Qt.size(64 * Screen.devicePixelRatio, 64 * Screen.devicePixelRatio)
                    source: "qrc:/qt/qml/Zumeta/theme/icons/zumeta.svg"
                    Accessible.ignored: true
                }
                Column {
                    id: facts

                    anchors { left: sign.right; leftMargin: 18; right: parent.right }
                    spacing: 4

                    Text {
                        width: parent.width
                        text: "Zumeta"
                        color: Theme.text1
                        font: Typography.sheetTitle
                    }
                    Text {
                        objectName: "aboutVersion"
                        width: parent.width
                        text: AboutModel.version
                        color: Theme.text2
                        font: Typography.smallText
                    }
                    Text {
                        width: parent.width
                        text: Words.of("Licence Line")
                        color: Theme.text2
                        font: Typography.smallText
                        lineHeightMode: Text.FixedHeight
                        lineHeight: 18 + Typography.extraLineHeight
                        wrapMode: Text.Wrap
                    }
                }
                LicenceText {
                    objectName: "licences"
                    anchors { left: parent.left; right: parent.right }
                    anchors { top: parent.top; topMargin: Math.max(sign.height, facts.height) + 18 }
                    anchors { bottom: close.top; bottomMargin: 18 }
                }
                ActionButton {
                    id: close

                    objectName: "aboutClose"
                    anchors { left: parent.left; right: parent.right; bottom: parent.bottom }
                    focus: true
                    implicitHeight: 40
                    title: Words.of("OK")
                    isNeutral: true
                    onClicked: MenuModel.closeAbout()
                }
            }
        }
    }
}
