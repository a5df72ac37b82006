// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// The language of everything that is read. A choice takes effect at once.
PressableArea {
    id: root

    text: Texts.languages[Texts.chosenLanguage]
    implicitWidth: content.implicitWidth + 28
    implicitHeight: 36
    Accessible.role: Accessible.ComboBox
    onClicked: menu.opened ? menu.close() : menu.open()

    Rectangle {
        anchors.fill: parent
        radius: Theme.radiusChip
        color: root.pressed ? Theme.surface2Pressed
             : root.hovered || menu.opened ? Theme.surface2 : Theme.surface1
        border.width: Theme.strokeEdge
        border.color: Theme.stroke2

        Behavior on color { ColorAnimation { duration: Motion.colour } }
    }
    Row {
        id: content

        anchors.centerIn: parent
        spacing: 10

        Icon {
            anchors.verticalCenter: parent.verticalCenter
            name: "globe"
            size: 18
            color: Theme.text2
        }
        Text {
            anchors.verticalCenter: parent.verticalCenter
            text: root.text
            color: Theme.text1
            font: Typography.smallText
        }
        Icon {
            anchors.verticalCenter: parent.verticalCenter
            name: "chevron-down"
            size: 14
            color: Theme.text3
        }
    }
    FocusRing {
        control: root
        controlRadius: Theme.radiusChip
        border.color: Theme.lime.base
    }
    ChoiceMenu {
        id: menu

        y: -height - 8
        items: Texts.languages
        chosen: Texts.chosenLanguage
        hasDividerAfterFirst: true
        onPicked: index => Texts.chooseLanguage(index)
    }
}
