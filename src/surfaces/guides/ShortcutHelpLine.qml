// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// The title of a section of shortcuts, or one shortcut: its keys and what they do.
Item {
    id: root

    required property bool isTitle
    required property string textKey
    required property list<string> keys
    property Accent accent: Theme.gold

    implicitHeight: isTitle ? title.implicitHeight + 16 : Math.max(32, description.implicitHeight + 4)

    Text {
        id: title

        anchors { left: parent.left; right: parent.right; bottom: parent.bottom; bottomMargin: 4 }
        text: root.isTitle ? Words.of(root.textKey) : ""
        color: root.accent.base
        font: Typography.captionStrong
        wrapMode: Text.Wrap
    }
    Row {
        anchors.verticalCenter: parent.verticalCenter
        spacing: 4

        Repeater {
            model: root.keys

            Item {
                id: key

                required property string modelData
                readonly property bool isCap: modelData !== "/" && modelData !== "+"

                width: sign.implicitWidth + (isCap ? 12 : 0)
                height: 22

                Rectangle {
                    anchors.fill: parent
                    radius: Theme.radiusMenuRow
                    color: Theme.stroke2 // under the cap: its edge
                    visible: key.isCap
                }
                Rectangle {
                    anchors.fill: parent
                    anchors.bottomMargin: 2
                    radius: Theme.radiusMenuRow
                    color: Theme.surface3
                    border.width: Theme.strokeEdge
                    border.color: Theme.stroke2
                    visible: key.isCap
                }
                Text {
                    id: sign

                    anchors { centerIn: parent; verticalCenterOffset: -1 }
                    text: key.modelData
                    color: key.isCap ? Theme.text1 : Theme.text3
                    font: Typography.caption
                }
            }
        }
    }
    Text {
        id: description

        anchors { left: parent.left; leftMargin: 130; right: parent.right; verticalCenter: parent.verticalCenter }
        text: root.isTitle ? "" : Words.of(root.textKey)
        color: Theme.text2
        font: Typography.smallText
        wrapMode: Text.Wrap
    }
}
