// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// A numbered marker with a pointer at the track below.
Item {
    id: root

    property string label
    property bool isSelected: false
    property Accent accent: Theme.gold
    readonly property color ground: isSelected ? accent.base : Theme.marker

    signal tapped // by whom no pointer helps; presses are the trimmer's

    width: 36
    height: 38
    Accessible.role: Accessible.Button
    Accessible.name: label
    Accessible.checkable: true
    Accessible.checked: isSelected
    Accessible.onPressAction: tapped()

    // A dark rim holds it apart from a bright picture behind.
    Rectangle {
        anchors.fill: pill
        anchors.margins: -1
        radius: height / 2
        color: Qt.alpha(Theme.window, 0.6)
    }
    Icon {
        anchors.horizontalCenter: parent.horizontalCenter
        y: root.isSelected ? 24 : 25
        name: "triangle-fill"
        // The triangle takes three quarters of its picture: what is seen is 11 and 9 wide.
        size: root.isSelected ? 15 : 12
        rotation: 180
        color: root.ground
    }
    Rectangle {
        id: pill

        anchors.horizontalCenter: parent.horizontalCenter
        y: 28 - height
        width: Math.max(text.implicitWidth + 10, root.isSelected ? 27 : 24)
        height: root.isSelected ? 19 : 17
        radius: height / 2
        color: root.ground

        Text {
            id: text

            objectName: "markerLabel"
            anchors.centerIn: parent
            text: root.label
            color: root.isSelected ? root.accent.ink : Theme.text1
            font: root.isSelected ? Typography.selectedMarker : Typography.marker
        }
    }
}
