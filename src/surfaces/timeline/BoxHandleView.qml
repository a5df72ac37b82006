// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// What a trim is taken by.
Rectangle {
    id: root

    property bool isDragging: false
    property Accent accent: Theme.gold

    width: 6
    radius: 3
    color: isDragging ? accent.hover : accent.base

    Rectangle {
        anchors.centerIn: parent
        width: 2
        height: 14
        radius: 1
        color: root.accent.ink
        opacity: 0.6
    }
}
