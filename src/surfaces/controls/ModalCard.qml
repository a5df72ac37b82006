// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T
import Zumeta

/// A card over the dimmed window. It never goes by a press beside it.
ModalPopup {
    id: root

    property int cardWidth: 360
    property color scrimColor: Theme.scrim

    parent: T.Overlay.overlay
    anchors.centerIn: parent
    width: Math.min(cardWidth, parent ? parent.width - 48 : cardWidth)
    padding: 22
    modal: true
    focus: true
    closePolicy: T.Popup.NoAutoClose
    T.Overlay.modal: Rectangle { color: root.scrimColor }

    enter: Transition { NumberAnimation { property: "opacity"; from: 0; to: 1; duration: Motion.smooth; easing.type: Easing.OutCubic } }
    exit: Transition { NumberAnimation { property: "opacity"; from: 1; to: 0; duration: Motion.colour } }

    background: Item {
        Shadow {}
        Rectangle {
            anchors.fill: parent
            radius: Theme.radiusCard
            color: Theme.surface1
            border.width: Theme.strokeEdge
            border.color: Theme.stroke2
        }
    }
}
