// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// The track of a value row: the knob goes to the pointer, with its middle over the whole width. The wheel scrolls what
/// is around it and changes nothing here.
Item {
    id: root

    required property ValueRowModel row
    required property Accent accent
    required property string text // what a screen reader says
    property bool isFocused: false
    readonly property real value: row.value // these four for assistive technology
    readonly property real minimumValue: row.lower
    readonly property real maximumValue: row.upper
    readonly property real stepSize: row.step
    readonly property color fillColor: enabled ? accent.base : Theme.textOff
    readonly property real knobCentre: Math.round(row.knobFraction * width)

    implicitHeight: 16
    Accessible.role: Accessible.Slider
    Accessible.name: text
    Accessible.onIncreaseAction: row.stepUp()
    Accessible.onDecreaseAction: row.stepDown()

    Rectangle {
        anchors { left: parent.left; right: parent.right; verticalCenter: parent.verticalCenter }
        height: 4
        radius: 2
        color: Theme.track

        Rectangle {
            width: root.knobCentre
            height: parent.height
            radius: parent.radius
            color: root.fillColor
        }
    }
    Rectangle {
        anchors.verticalCenter: parent.verticalCenter
        x: Math.round(root.row.zeroTickFraction * root.width) - 1
        width: 2
        height: 10
        color: Theme.trackTick
        visible: root.row.hasZeroTick
    }
    Rectangle {
        anchors.centerIn: knob
        width: 28
        height: 28
        radius: 14
        color: Qt.alpha(root.accent.base, 0.22)
        visible: root.enabled && (root.row.isDraggingSlider || root.isFocused)
    }
    Rectangle {
        id: knob

        anchors.verticalCenter: parent.verticalCenter
        x: root.knobCentre - 8
        width: 16
        height: 16
        radius: 8
        color: root.fillColor
        scale: mouse.containsMouse || root.row.isDraggingSlider ? 18 / 16 : 1

        Behavior on scale { NumberAnimation { duration: Motion.colour; easing.type: Easing.OutQuad } }

        Rectangle {
            anchors.centerIn: parent
            width: 13
            height: 13
            radius: 6.5
            color: Theme.panel
        }
        Rectangle {
            anchors.centerIn: parent
            width: 10
            height: 10
            radius: 5
            color: root.fillColor
        }
    }
    MouseArea {
        id: mouse

        readonly property int overhang: 8 // of the knob at either end

        anchors.fill: parent
        anchors.leftMargin: -overhang
        anchors.rightMargin: -overhang
        hoverEnabled: true
        preventStealing: true
        onPressed: mouse => root.row.dragTrack(mouse.x - overhang, root.width)
        onPositionChanged: mouse => { if (pressed) root.row.dragTrack(mouse.x - overhang, root.width); }
        onReleased: root.row.endTrackDrag()
        onCanceled: root.row.endTrackDrag()
    }
}
