// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/// One accent in all its uses.
QtObject {
    property color base
    property color hover
    property color pressed
    property color ink // of text and icons upon it
    property string glow // the picture that shines around a highlighted button
    readonly property color faint: Qt.alpha(base, 0.10)
    readonly property color dim: Qt.alpha(base, 0.14)
    readonly property color halo: Qt.alpha(base, 0.18)
    readonly property color knobHalo: Qt.alpha(base, 0.22)
    readonly property color selection: Qt.alpha(base, 0.36) // of text
    readonly property color edge: Qt.alpha(base, 0.45)
    readonly property color edgeHover: Qt.alpha(base, 0.75)
}
