// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// A row of values that comes in a little after the one above it.
StepperSliderRow {
    id: root

    property int order: 0

    property real distance: 0

    transform: Translate { y: Math.round(root.distance) } // letters between two pixels are drawn otherwise

    SequentialAnimation {
        running: true

        PropertyAction { target: root; property: "opacity"; value: 0 }
        PauseAnimation { duration: root.order * Motion.stagger }
        ParallelAnimation {
            NumberAnimation { target: root; property: "opacity"; to: 1; duration: Motion.smooth; easing.type: Easing.OutCubic }
            NumberAnimation { target: root; property: "distance"; from: 6; to: 0; duration: Motion.smooth; easing.type: Easing.OutCubic }
        }
    }
}
