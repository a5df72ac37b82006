// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// Stands where the picture will be, until there is a video: drop it, or choose it.
Item {
    id: root

    property string icon: "folder"
    required property string artwork
    required property string title
    required property string description
    property bool showsDescription: true
    required property string buttonTitle
    required property string hint
    required property Accent accent
    property bool isHighlighted: false
    property bool isDragOver: false

    signal chosen

    objectName: "dropInstructionCard"
    implicitHeight: column.implicitHeight + 36 + 28

    Rectangle {
        anchors.fill: parent
        radius: Theme.radiusDropCard
        color: Theme.dropCard

        Rectangle {
            anchors.fill: parent
            radius: parent.radius
            color: Qt.alpha(root.accent.base, 0.08)
            visible: root.isDragOver
        }
    }
    DashedStroke {
        anchors.fill: parent
        radius: Theme.radiusDropCard
        strokeWidth: Theme.strokeRing
        gap: root.isDragOver ? 0 : 6
        color: root.isDragOver ? root.accent.base
             : root.isHighlighted ? Qt.alpha(root.accent.base, 0.6) : Theme.stroke3
    }
    Column {
        id: column

        anchors { left: parent.left; right: parent.right; top: parent.top; leftMargin: 32; rightMargin: 32; topMargin: 36 }

        Image {
            anchors.horizontalCenter: parent.horizontalCenter
            width: 112
            height: 72
            sourceSize: Qt.size(width * Screen.devicePixelRatio, height * Screen.devicePixelRatio)
            source: "image://icon/" + root.artwork + "/FFFFFF"
        }
        Item { width: 1; height: 20 }
        Text {
            width: parent.width
            text: root.title
            color: Theme.text1
            font: Typography.cardTitle
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
        }
        Item { width: 1; height: 8; visible: root.showsDescription }
        Text {
            anchors.horizontalCenter: parent.horizontalCenter
            width: Math.min(360, parent.width)
            text: root.description
            color: Theme.text2
            font: Typography.body
            lineHeightMode: Text.FixedHeight
            lineHeight: 20 + Typography.extraLineHeight
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
            visible: root.showsDescription
        }
        Item { width: 1; height: 22 }
        ActionButton {
            objectName: "chooseVideoButton"
            anchors.horizontalCenter: parent.horizontalCenter
            width: Math.min(implicitWidth + 16, parent.width)
            height: Math.max(44, implicitHeight - 4)
            icon: root.icon
            title: root.buttonTitle
            accent: root.accent
            isFilled: true
            onClicked: root.chosen()
        }
        Item { width: 1; height: 16 }
        Text {
            width: parent.width
            text: root.hint
            color: Theme.text3
            font: Typography.caption
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
        }
    }
}
