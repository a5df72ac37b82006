// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// Whether the movie shall carry the mark. A press on the words is one on the switch.
Item {
    id: root

    property Accent accent: Theme.gold

    implicitHeight: Math.max(words.implicitHeight, mark.implicitHeight)

    MouseArea {
        anchors.fill: parent
        cursorShape: Qt.PointingHandCursor
        onClicked: ExportSheetModel.toggleZumetaMark()
    }
    Column {
        id: words

        anchors { left: parent.left; right: mark.left; rightMargin: 20; verticalCenter: parent.verticalCenter }
        spacing: 4

        Text {
            id: title

            width: parent.width
            text: Words.of("Show Zumeta Mark")
            color: Theme.text1
            font: Typography.bodyStrong
            wrapMode: Text.Wrap
        }
        Text {
            id: description

            width: parent.width
            text: Words.of("Show Zumeta Mark Description")
            color: Theme.text2
            font: Typography.smallText
            lineHeightMode: Text.FixedHeight
            lineHeight: 18 + Typography.extraLineHeight
            wrapMode: Text.Wrap
        }
    }
    ToggleSwitch {
        id: mark

        anchors { right: parent.right; verticalCenter: parent.verticalCenter }
        objectName: "zumetaMarkSwitch"
        text: title.text
        isOn: ExportSheetModel.showZumetaMarkOnExport
        accent: root.accent
        Accessible.description: description.text
        onClicked: ExportSheetModel.toggleZumetaMark()
    }
}
