// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// A symbol of the house in one colour, sharp at every scale of the screen.
Image {
    id: root

    property string name
    property color color: Theme.text1
    property int size: 20

    width: size
    height: size
    sourceSize: Qt.size(size * Screen.devicePixelRatio, size * Screen.devicePixelRatio)
    source: name ? "image://icon/" + name + "/" + String(color).slice(1) : ""
}
