// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Zumeta

/// A menu of which one item is chosen. Arrows move, Return picks, Escape leaves.
ModalPopup {
    id: root

    kind: ModalState.Menu

    property var items: []
    property int chosen: -1
    property bool hasDividerAfterFirst: false
    property Accent accent: Theme.lime

    signal picked(int index)

    implicitWidth: contentItem.implicitWidth + 2 * padding
    implicitHeight: contentItem.implicitHeight + 2 * padding
    padding: 6
    focus: true
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutside
    onAboutToShow: list.current = Math.max(chosen, 0) // before the first key that a quick hand presses

    enter: Transition { NumberAnimation { property: "opacity"; from: 0; to: 1; duration: Motion.colour } }
    exit: Transition { NumberAnimation { property: "opacity"; from: 1; to: 0; duration: Motion.colour } }

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
        id: list

        property int current: 0

        spacing: 0

        focus: true // of the popup, so that keys come here
        Keys.onDownPressed: current = Math.min(current + 1, root.items.length - 1)
        Keys.onUpPressed: current = Math.max(current - 1, 0)
        Keys.onReturnPressed: rows.itemAt(current).pick()
        Keys.onEnterPressed: rows.itemAt(current).pick()

        Repeater {
            id: rows

            model: root.items

            Item {
                id: row

                required property int index
                required property string modelData
                readonly property bool isChosen: index === root.chosen
                readonly property int dividerHeight: root.hasDividerAfterFirst && index === 0 ? 13 : 0

                function pick() {
                    root.close();
                    root.picked(index);
                }

                implicitWidth: Math.max(200, label.implicitWidth + 48)
                implicitHeight: 30 + dividerHeight
                Layout.fillWidth: true
                Accessible.role: Accessible.MenuItem
                Accessible.name: modelData
                Accessible.checked: isChosen
                Accessible.onPressAction: pick()

                Rectangle {
                    width: parent.width
                    height: 30
                    radius: Theme.radiusMenuRow
                    color: row.index === list.current ? Theme.surface3 : "transparent"

                    Icon {
                        anchors { left: parent.left; leftMargin: 10; verticalCenter: parent.verticalCenter }
                        name: "checkmark"
                        size: 16
                        color: root.accent.base
                        visible: row.isChosen
                    }
                    Text {
                        id: label

                        anchors { left: parent.left; leftMargin: 36; verticalCenter: parent.verticalCenter }
                        text: row.modelData
                        color: Theme.text1
                        font: Typography.smallText
                    }
                    MouseArea {
                        anchors.fill: parent
                        hoverEnabled: true
                        onEntered: list.current = row.index
                        onClicked: row.pick()
                    }
                }
                Rectangle {
                    y: 36
                    width: parent.width
                    height: 1
                    color: Theme.stroke1
                    visible: row.dividerHeight > 0
                }
            }
        }
    }
}
