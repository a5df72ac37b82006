// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Layouts
import Zumeta

/// What the four steps have in common: a column that comes in from the side.
ColumnLayout {
    id: root

    required property Accent accent
    property real distance: 24
    readonly property bool isAtRest: !arrival.running

    /// This part of it, which has just come, is worth seeing.
    signal sightWanted(Item part)

    objectName: "stepView"
    spacing: 0
    // In whole pixels: letters between two of them are drawn otherwise.
    transform: Translate { x: Math.round(root.distance) }

    ParallelAnimation {
        id: arrival

        running: true

        NumberAnimation { target: root; property: "distance"; from: 24; to: 0; duration: Motion.step; easing.type: Easing.InOutCubic }
        NumberAnimation { target: root; property: "opacity"; from: 0; to: 1; duration: Motion.step; easing.type: Easing.InOutCubic }
    }
}
