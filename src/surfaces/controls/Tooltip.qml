// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T
import Zumeta

/// Says what its parent is for, once the pointer has rested on it or the keyboard has come to it. Above it, or below
/// where there is no room.
T.ToolTip {
    id: root

    x: (parent.width - implicitWidth) / 2
    y: -implicitHeight - 8
    implicitWidth: Math.min(contentItem.implicitWidth + leftPadding + rightPadding, 320)
    implicitHeight: contentItem.implicitHeight + topPadding + bottomPadding
    margins: 8
    leftPadding: 10
    rightPadding: 10
    topPadding: 6
    bottomPadding: 6
    delay: 600
    closePolicy: T.Popup.NoAutoClose

    enter: Transition { NumberAnimation { property: "opacity"; from: 0; to: 1; duration: Motion.colour } }
    exit: Transition { NumberAnimation { property: "opacity"; from: 1; to: 0; duration: Motion.colour } }

    background: Item {
        Shadow { level: 2 }
        Rectangle {
            anchors.fill: parent
            radius: Theme.radiusField
            color: Theme.surface3
            border.width: Theme.strokeEdge
            border.color: Theme.stroke2
        }
    }
    contentItem: Text {
        text: root.text
        color: Theme.text1
        font: Typography.caption
        wrapMode: Text.Wrap
    }
}
