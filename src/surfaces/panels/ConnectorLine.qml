// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// From one step of the bar to the next.
Rectangle {
    property bool isCompleted: false
    property Accent accent: Theme.lime // of the step before

    implicitHeight: 2
    radius: 1
    color: isCompleted ? Qt.alpha(accent.base, 0.7) : Theme.stroke2

    Behavior on color { ColorAnimation { duration: Motion.step; easing.type: Easing.InOutCubic } }
}
