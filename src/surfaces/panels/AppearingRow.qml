// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// A row of values that comes in a little after the one above it.
StepperSliderRow {
    id: root

    property int order: 0

    transform: Translate { id: rise }

    SequentialAnimation {
        running: true

        PropertyAction { target: root; property: "opacity"; value: 0 }
        PauseAnimation { duration: root.order * Motion.stagger }
        ParallelAnimation {
            NumberAnimation { target: root; property: "opacity"; to: 1; duration: Motion.smooth; easing.type: Easing.OutCubic }
            NumberAnimation { target: rise; property: "y"; from: 6; to: 0; duration: Motion.smooth; easing.type: Easing.OutCubic }
        }
    }
}
