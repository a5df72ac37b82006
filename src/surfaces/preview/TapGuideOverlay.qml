// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// Tells what to click while the water's height is to be picked.
Rectangle {
    id: root

    required property Accent accent
    property real pulse: 0 // to 1 and back
    readonly property real phase: Motion.pulses ? pulse : 1 // rests where the icon is brightest
    readonly property real glowRadius: 8 + 8 * phase

    objectName: "tapGuide"
    width: Math.min(16 + disc.width + 12 + Math.ceil(Math.max(title.implicitWidth, hint.implicitWidth)) + 20, parent.width - 48)
    height: 24 + Math.max(disc.height, texts.implicitHeight)
    radius: Theme.radiusCard
    color: Theme.plate
    border { width: Theme.strokeEdge; color: Theme.stroke2 }

    SequentialAnimation on pulse {
        running: Motion.pulses && root.visible
        loops: Animation.Infinite

        NumberAnimation { from: 0; to: 1; duration: Motion.pulse; easing.type: Easing.InOutQuad }
        NumberAnimation { from: 1; to: 0; duration: Motion.pulse; easing.type: Easing.InOutQuad }
    }

    Shadow { level: 2 }
    Item {
        id: disc

        anchors { left: parent.left; leftMargin: 16; verticalCenter: parent.verticalCenter }
        width: 44
        height: 44

        // The glow, in two discs that fade outward.
        Rectangle {
            anchors.centerIn: parent
            width: 28 + 2 * root.glowRadius
            height: width
            radius: width / 2
            color: root.accent.faint
        }
        Rectangle {
            anchors.centerIn: parent
            width: 28 + root.glowRadius
            height: width
            radius: width / 2
            color: root.accent.dim
        }
        Icon {
            anchors.centerIn: parent
            name: "hand-tap-fill"
            size: 28
            color: root.accent.base
            opacity: 0.4 + 0.4 * root.phase
            scale: 1 + 0.1 * root.phase
        }
    }
    Column {
        id: texts

        anchors { left: disc.right; leftMargin: 12; right: parent.right; rightMargin: 20; verticalCenter: parent.verticalCenter }
        spacing: 2

        Text {
            id: title

            width: parent.width
            text: Words.of("Tap lane rope")
            color: Theme.text1
            font: Typography.buttonLarge
            wrapMode: Text.Wrap
        }
        Text {
            id: hint

            width: parent.width
            text: Words.of("Align water surface")
            color: Theme.text2
            font: Typography.smallText
            wrapMode: Text.Wrap
        }
    }
}
