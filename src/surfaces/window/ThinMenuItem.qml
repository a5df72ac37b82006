// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// One line of a menu: what it does and its key, or a divider.
Item {
    id: root

    required property int index
    required property string titleKey
    required property string shortcut
    required property bool isDivider
    required property bool isEnabled
    readonly property bool isCurrent: index === MenuModel.currentRow

    objectName: "menuItem" + index
    implicitWidth: isDivider ? 0 : Math.max(200, label.implicitWidth + key.implicitWidth + (shortcut ? 60 : 20))
    implicitHeight: isDivider ? 13 : 30
    Accessible.role: isDivider ? Accessible.Separator : Accessible.MenuItem
    Accessible.name: label.text
    Accessible.description: shortcut
    Accessible.focusable: isEnabled
    Accessible.selected: isCurrent
    Accessible.onPressAction: MenuModel.triggerRow(index)

    Rectangle {
        anchors { left: parent.left; right: parent.right; verticalCenter: parent.verticalCenter }
        height: 1
        color: Theme.stroke1
        visible: root.isDivider
    }
    Rectangle {
        anchors.fill: parent
        radius: Theme.radiusMenuRow
        color: root.isCurrent ? Theme.surface3 : "transparent"
        visible: !root.isDivider

        Text {
            id: label

            anchors { left: parent.left; leftMargin: 10; verticalCenter: parent.verticalCenter }
            text: root.isDivider ? "" : Words.of(root.titleKey)
            color: root.isEnabled ? Theme.text1 : Theme.textOff
            font: Typography.smallText
        }
        Text {
            id: key

            anchors { right: parent.right; rightMargin: 10; verticalCenter: parent.verticalCenter }
            text: root.shortcut
            color: !root.isEnabled ? Theme.textOff : root.isCurrent ? Theme.text2 : Theme.text3
            font: Typography.caption
        }
    }
    MouseArea {
        anchors.fill: parent
        hoverEnabled: true
        onPositionChanged: mouse => MenuModel.hoverRow(root.index, mapToItem(null, mouse.x, mouse.y))
        onExited: MenuModel.leaveRow(root.index)
        onClicked: MenuModel.triggerRow(root.index)
    }
}
