// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// Around what the keyboard's next key goes to, for whoever works by the keyboard.
Rectangle {
    required property Item control
    property real controlRadius: Theme.radiusButton

    anchors.fill: parent
    anchors.margins: -Theme.focusDistance
    radius: controlRadius + Theme.focusDistance
    color: "transparent"
    border.width: Theme.strokeFocus
    visible: control.activeFocus && KeyboardFocus.isShown
}
