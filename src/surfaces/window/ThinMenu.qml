// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Zumeta

/// The open menu of the bar. The model says which one that is, and which line is chosen.
ModalPopup {
    id: root

    kind: ModalState.Menu
    implicitWidth: contentItem.implicitWidth + 2 * padding
    implicitHeight: contentItem.implicitHeight + 2 * padding
    padding: 6
    focus: true
    closePolicy: T.Popup.NoAutoClose // the model closes it

    enter: Transition { NumberAnimation { property: "opacity"; from: 0; to: 1; duration: Motion.colour } }

    background: Item {
        Shadow { level: 2 }
        Rectangle {
            anchors.fill: parent
            radius: Theme.radiusToggle
            color: Theme.surface1
            border.width: Theme.strokeEdge
            border.color: Theme.stroke2
        }
    }
    contentItem: ColumnLayout {
        objectName: "openMenu"
        spacing: 0
        focus: true // of the popup, so that keys come here
        Keys.onDownPressed: MenuModel.moveToRow(1)
        Keys.onUpPressed: MenuModel.moveToRow(-1)
        Keys.onLeftPressed: MenuModel.moveToMenu(-1)
        Keys.onRightPressed: MenuModel.moveToMenu(1)
        Keys.onReturnPressed: MenuModel.triggerCurrentRow()
        Keys.onEnterPressed: MenuModel.triggerCurrentRow()
        Keys.onSpacePressed: MenuModel.triggerCurrentRow()
        Keys.onEscapePressed: MenuModel.close()
        Keys.onPressed: event => event.accepted = MenuModel.pressKey(event.key)
        Accessible.role: Accessible.PopupMenu
        Accessible.name: MenuModel.isOpen ? Words.of(MenuModel.titleKeys[MenuModel.openMenu]) : ""

        Repeater {
            model: MenuModel

            ThinMenuItem { Layout.fillWidth: true }
        }
    }
}
