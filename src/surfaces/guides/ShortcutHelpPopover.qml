// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Zumeta

/// The shortcuts of a step, beside the panel. Its parent is the step's title row.
ModalPopup {
    id: root

    required property Item button // that it points at
    required property int step
    property Accent accent: Theme.gold

    /// The button's middle, from the popover's top. Known once it stands.
    function arrowPlace(isOpen: bool, height: real): real {
        return contentItem.mapFromItem(button, 0, button.height / 2).y + topPadding;
    }

    kind: ModalState.Popover
    x: -width - 20 - 12
    y: -6
    width: 372
    implicitHeight: contentItem.implicitHeight + topPadding + bottomPadding
    margins: 8
    padding: 20
    topPadding: 18
    bottomPadding: 16
    focus: true
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent

    enter: Transition { NumberAnimation { property: "opacity"; from: 0; to: 1; duration: Motion.colour } }
    exit: Transition { NumberAnimation { property: "opacity"; from: 1; to: 0; duration: Motion.colour } }

    background: Item {
        objectName: "shortcutHelp"

        Shadow {}
        Rectangle {
            anchors.fill: parent
            radius: Theme.radiusCard
            color: Theme.surface1
            border.width: Theme.strokeEdge
            border.color: Theme.stroke2
        }
        Item {
            x: parent.width - 1
            y: Math.round(root.arrowPlace(root.opened, root.height)) - 12
            width: 12
            height: 24
            clip: true

            Rectangle {
                x: -6
                anchors.verticalCenter: parent.verticalCenter
                width: 12
                height: 12
                rotation: 45
                color: Theme.surface1
                border.width: Theme.strokeEdge
                border.color: Theme.stroke2
            }
        }
    }
    contentItem: ColumnLayout {
        focus: true
        spacing: 0
        Keys.onReturnPressed: root.close()
        Keys.onEnterPressed: root.close()

        Text {
            Layout.fillWidth: true
            Layout.bottomMargin: 2
            text: Words.of("Shortcut Help")
            color: Theme.text1
            font: Typography.rowTitle
            wrapMode: Text.Wrap
        }
        Repeater {
            model: ShortcutHelpModel { step: root.step }

            ShortcutHelpLine {
                Layout.fillWidth: true
                accent: root.accent
            }
        }
    }
}
