// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T
import Zumeta

/// The menus of the window. A press opens one, the pointer leads on to the next; F10 opens the first.
Rectangle {
    id: root

    objectName: "menuBar"
    implicitHeight: 30
    color: Theme.window
    Accessible.role: Accessible.MenuBar
    Accessible.name: "Zumeta"

    MouseArea { // beside the titles
        anchors.fill: parent
        onPressed: MenuModel.close()
    }
    Rectangle {
        anchors { left: parent.left; right: parent.right; bottom: parent.bottom }
        height: 1
        color: Theme.stroke1
    }
    Image {
        anchors.verticalCenter: parent.verticalCenter
        x: 12
        width: 18
        height: 18
        sourceSize: Qt.size(18 * Screen.devicePixelRatio, 18 * Screen.devicePixelRatio)
        source: "qrc:/qt/qml/Zumeta/theme/icons/zumeta.svg"
        Accessible.ignored: true
    }
    Row {
        id: titles

        anchors.verticalCenter: parent.verticalCenter
        x: 36
        spacing: 2

        Repeater {
            id: titleItems

            model: MenuModel.titleKeys

            MenuTitle {}
        }
    }
    Repeater {
        model: MenuModel.shortcuts

        Item {
            id: registered

            required property int index
            required property string modelData

            Shortcut {
                sequence: registered.modelData
                enabled: ModalState.isOpen
                onActivated: MenuModel.triggerShortcut(registered.index)
            }
        }
    }
    Shortcut {
        sequence: "F10"
        enabled: ModalState.isOpen && root.visible
        onActivated: MenuModel.openFirstMenu()
    }
    Loader { // What lies beside an open menu feels neither the pointer nor the press that closes it.
        active: MenuModel.isOpen

        sourceComponent: MouseArea {
            parent: T.Overlay.overlay
            anchors { fill: parent; topMargin: root.height }
            z: -1
            acceptedButtons: Qt.AllButtons
            hoverEnabled: true
            onPressed: MenuModel.close()
            onWheel: wheel => wheel.accepted = true
        }
    }
    ThinMenu {
        x: MenuModel.isOpen ? titles.x + titleItems.itemAt(MenuModel.openMenu).x : 0
        y: root.height + 2
        visible: MenuModel.isOpen
    }
    AboutCard {}
}
