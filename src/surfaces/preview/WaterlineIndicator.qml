// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// Where the above picture gives way to the below one. Blue on water alone would vanish: a dark line lies under it.
Item {
    id: root

    required property real position // of the line's middle, downward
    required property bool isShown

    objectName: "waterlineIndicator"
    y: position - height / 2
    height: 4
    opacity: isShown ? 1 : 0

    Behavior on opacity { NumberAnimation { duration: Motion.thumb; easing.type: Easing.InOutQuad } }

    DashedStroke {
        anchors.fill: parent
        path: DashedStroke.Line
        dash: 10
        gap: 6
        strokeWidth: 4
        color: "#6104101F"
    }
    DashedStroke {
        anchors.fill: parent
        path: DashedStroke.Line
        dash: 10
        gap: 6
        strokeWidth: 2
        color: Theme.waterline
    }
}
