// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// The title of one menu in the bar. Like a menu it opens at the press, and leaves the focus with what has it.
Rectangle {
    id: root

    required property int index
    required property string modelData
    readonly property bool isOpen: MenuModel.openMenu === index

    objectName: "menuTitle" + index
    implicitWidth: label.implicitWidth + 20
    implicitHeight: 24
    radius: Theme.radiusMenuRow
    color: mouse.containsMouse || isOpen ? Theme.surface2 : "transparent"
    Accessible.role: Accessible.MenuItem
    Accessible.name: label.text
    Accessible.onPressAction: MenuModel.pressTitle(index)

    Text {
        id: label

        anchors.centerIn: parent
        text: Words.of(root.modelData)
        color: mouse.containsMouse || root.isOpen ? Theme.text1 : Theme.text2
        font: Typography.smallText
    }
    MouseArea {
        id: mouse

        anchors.fill: parent
        hoverEnabled: true
        onPressed: MenuModel.pressTitle(root.index)
        onEntered: MenuModel.hoverTitle(root.index)
    }
}
