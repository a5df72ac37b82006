// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// The question at the head of the queue. Return presses the first button, or the last where the first one takes
/// something away; Escape answers as closing does.
ModalCard {
    id: root

    kind: ModalState.Alert
    visible: AlertQueue.isOpen
    height: column.implicitHeight + 2 * padding

    contentItem: FocusScope {
        focus: true
        Keys.onEscapePressed: AlertQueue.close()

        Column {
            id: column

            width: parent.width
            spacing: 10

            Text {
                width: parent.width
                text: AlertQueue.title
                color: Theme.text1
                font: Typography.alertTitle
                textFormat: Text.PlainText
                wrapMode: Text.Wrap
            }
            Text {
                width: parent.width
                text: AlertQueue.message
                color: Theme.text2
                font: Typography.body
                lineHeightMode: Text.FixedHeight
                lineHeight: 20 + Typography.extraLineHeight
                textFormat: Text.PlainText
                wrapMode: Text.Wrap
            }
            Item { width: 1; height: 4 }
            Row {
                width: parent.width
                spacing: 10
                layoutDirection: Qt.RightToLeft // the first button stands at the right, Cancel at the left

                Repeater {
                    id: buttons

                    model: AlertQueue.buttons

                    ActionButton {
                        required property int index
                        required property string modelData

                        objectName: "alertButton" + index
                        focus: index === (AlertQueue.isDestructive ? AlertQueue.buttons.length - 1 : 0)
                        width: (column.width - 10 * (buttons.count - 1)) / buttons.count
                        implicitHeight: 40
                        title: modelData
                        isFilled: index === 0
                        isNeutral: true
                        accent: AlertQueue.isDestructive && isFilled ? Theme.destructive : Theme.accentOf(WindowModel.step)
                        onClicked: AlertQueue.answer(index)
                    }
                }
            }
        }
    }
}
