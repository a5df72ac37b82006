// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// Over the picture while it becomes a movie. What lies beneath takes no presses, wheel or drops meanwhile; Escape does
/// not give an export up, because nothing brings back what it had done.
Item {
    id: root

    required property Item picture // a sibling, on which the progress stands

    objectName: "exportOverlay"
    opacity: ExportStatusModel.isExporting ? 1 : 0
    visible: opacity > 0
    enabled: ExportStatusModel.isExporting

    Behavior on opacity { NumberAnimation { duration: Motion.smooth; easing.type: Easing.OutCubic } }

    Rectangle {
        anchors.fill: parent
        color: Theme.exportScrim
    }
    MouseArea {
        anchors.fill: parent
        acceptedButtons: Qt.AllButtons
        hoverEnabled: true
        onWheel: wheel => wheel.accepted = true
    }
    DropArea {
        anchors.fill: parent
        onEntered: drag => drag.action = Qt.IgnoreAction
        onDropped: drop => drop.action = Qt.IgnoreAction
    }
    // Made anew for each export: its ring would run back from the end of the last one.
    Loader {
        x: root.picture.x + (root.picture.width - width) / 2
        y: root.picture.y + (root.picture.height - height) / 2
        active: root.visible

        sourceComponent: ExportProgress {}
    }
}
