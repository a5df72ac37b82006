// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// The middle of the picture, to which the landmark is brought.
Item {
    id: root

    required property Accent accent

    objectName: "verticalGuideLine"

    Rectangle {
        x: PreviewModel.guideLineX - width / 2
        width: 8
        height: parent.height
        color: root.accent.base
        opacity: PreviewModel.guideBandOpacity

        Behavior on opacity { NumberAnimation { duration: Motion.guide; easing.type: Easing.InOutQuad } }
    }
    Rectangle {
        x: Math.floor(PreviewModel.guideLineX - width / 2)
        width: PreviewModel.guideLineWidth
        height: parent.height
        color: root.accent.base
        opacity: PreviewModel.guideLineOpacity

        Behavior on opacity { NumberAnimation { duration: Motion.guide; easing.type: Easing.InOutQuad } }
        Behavior on width { NumberAnimation { duration: Motion.guide; easing.type: Easing.InOutQuad } }
    }
    Rectangle {
        objectName: "lockBadge"
        x: PreviewModel.guideLineX - width / 2
        y: 14
        width: 26
        height: 26
        radius: Theme.radiusChip
        color: root.accent.base
        opacity: PreviewModel.hasLockBadge ? 0.85 : 0

        Behavior on opacity { NumberAnimation { duration: Motion.guide; easing.type: Easing.InOutQuad } }

        Icon {
            anchors.centerIn: parent
            name: "lock-fill"
            size: 14
            color: root.accent.ink
        }
    }
}
