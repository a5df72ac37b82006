// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// The shadow under its parent, for what floats: 2 for menus and small things, 3 for cards.
BorderImage {
    property int level: 3
    readonly property int reach: level === 3 ? 60 : 30

    anchors.fill: parent
    anchors.margins: -reach
    anchors.topMargin: -reach + (level === 3 ? 12 : 6)
    anchors.bottomMargin: -reach - (level === 3 ? 12 : 6)
    border.left: level === 3 ? 96 : 52
    border.right: border.left
    border.top: border.left
    border.bottom: border.left
    source: Theme.asset(level === 3 ? "shadow-e3.png" : "shadow-e2.png")
    z: -1
}
