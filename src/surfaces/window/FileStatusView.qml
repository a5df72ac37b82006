// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Layouts
import Zumeta

/// The file of one side.
Rectangle {
    id: root

    required property string title
    required property SideFile file
    required property Accent accent
    property bool showDeleteButton: file.isPresent
    readonly property bool isActiveStep: file.isActive

    implicitWidth: 12 + 16 + 8 + Math.ceil(titleText.implicitWidth) + 8 + Math.ceil(nameText.implicitWidth) + (showDeleteButton ? 36 : 12)
    implicitHeight: 30
    radius: Theme.radiusChip
    color: Theme.surface1
    Accessible.role: Accessible.StaticText
    Accessible.name: titleText.text + ": " + nameText.text
    border.width: Theme.strokeEdge
    border.color: file.isUnreadable ? Qt.alpha(Theme.error, 0.5)
                : isActiveStep ? Qt.alpha(accent.base, 0.55) : Theme.stroke1

    Behavior on border.color { ColorAnimation { duration: Motion.colour; easing.type: Easing.OutQuad } }

    RowLayout {
        anchors { fill: parent; leftMargin: 12; rightMargin: root.showDeleteButton ? 36 : 12 }
        spacing: 8

        Icon {
            name: root.file.isUnreadable ? "exclamationmark-triangle-fill" : "film"
            size: 16
            color: root.file.isUnreadable ? Theme.error : root.isActiveStep ? root.accent.base : Theme.text2
        }
        Text {
            id: titleText

            Layout.preferredWidth: Math.ceil(implicitWidth)
            text: root.title
            color: Theme.text3
            font: Typography.caption
        }
        Text {
            id: nameText

            Layout.fillWidth: true
            text: root.file.isPresent ? root.file.name : Words.of("Not Selected")
            color: root.file.isPresent ? Theme.text1 : Theme.text3
            font: Typography.caption
            elide: Text.ElideMiddle
            textFormat: Text.PlainText
        }
    }
    PressableArea {
        id: clearButton

        objectName: "clearButton"
        anchors { right: parent.right; rightMargin: 4; verticalCenter: parent.verticalCenter }
        width: 28
        height: 28
        text: Words.of("Remove Video") + ": " + root.title
        visible: root.showDeleteButton
        onClicked: root.file.clear()

        Icon {
            anchors.centerIn: parent
            name: "xmark-circle-fill"
            size: 16
            color: clearButton.pressed ? Theme.text3 : clearButton.hovered ? Theme.text1
                 : root.isActiveStep ? root.accent.base : Theme.text2
        }
        Rectangle {
            anchors.centerIn: parent
            width: 24
            height: 24
            radius: 12
            color: "transparent"
            border { width: Theme.strokeFocus; color: root.accent.base }
            visible: clearButton.activeFocus && KeyboardFocus.isShown
        }
    }
}
