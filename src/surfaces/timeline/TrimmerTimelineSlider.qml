// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// A scrubber that also carries the two trim handles and the markers.
Item {
    id: root

    required property TrimmerModel trimmer
    readonly property Accent accent: Theme.gold
    // What a screen reader takes from a slider.
    readonly property real value: TimelineModel.time
    readonly property real minimumValue: 0
    readonly property real maximumValue: TimelineModel.duration

    objectName: "trimmer"
    activeFocusOnTab: true
    Accessible.role: Accessible.Slider
    Accessible.name: Words.of("Playhead")
    Accessible.focusable: true
    Accessible.onIncreaseAction: TimelineModel.scrub(Qt.Key_PageUp, Qt.ShiftModifier)
    Accessible.onDecreaseAction: TimelineModel.scrub(Qt.Key_PageDown, Qt.ShiftModifier)
    Keys.onPressed: event => event.accepted = TimelineModel.scrub(event.key, event.modifiers)

    Binding {
        target: root.trimmer
        property: "width"
        value: root.width
    }

    Rectangle {
        anchors.verticalCenter: parent.verticalCenter
        objectName: "trimmerTrack"
        x: root.trimmer.trackX
        width: root.trimmer.trackWidth
        height: 6
        radius: 3
        color: Theme.sliderTrack
    }
    Rectangle {
        id: kept

        // Whole pixels of the screen: an edge between two of them would be smeared.
        readonly property real edge: Math.floor(Theme.strokeRing * Screen.devicePixelRatio) / Screen.devicePixelRatio

        objectName: "keptRange"
        x: root.trimmer.startX
        width: root.trimmer.endX - x
        height: parent.height
        radius: 3
        color: root.accent.faint

        Rectangle {
            width: parent.width
            height: kept.edge
            color: root.accent.edgeHover
        }
        Rectangle {
            anchors.bottom: parent.bottom
            width: parent.width
            height: kept.edge
            color: root.accent.edgeHover
        }
        Rectangle {
            anchors.verticalCenter: parent.verticalCenter
            width: parent.width
            height: 6
            color: Qt.alpha(root.accent.base, 0.85)
        }
    }
    FocusRing {
        control: root
        controlRadius: Theme.radiusChip
        border.color: root.accent.base
    }
    Repeater {
        model: root.trimmer.markers

        TrimTimelineMarker {
            required property int index
            required property double markerX

            objectName: "marker" + label
            required label
            required isSelected
            x: markerX - width / 2
            y: -12 - height / 2
            onTapped: TimelineModel.trimmer.tapMarker(index)
        }
    }
    BoxHandleView {
        objectName: "startHandle"
        x: root.trimmer.startX - width / 2
        height: parent.height
        isDragging: root.trimmer.isDraggingStart
        Accessible.role: Accessible.Indicator
        Accessible.name: Words.of("Trim Start")
    }
    BoxHandleView {
        objectName: "endHandle"
        x: root.trimmer.endX - width / 2
        height: parent.height
        isDragging: root.trimmer.isDraggingEnd
        Accessible.role: Accessible.Indicator
        Accessible.name: Words.of("Trim End")
    }
    Rectangle {
        anchors.verticalCenter: parent.verticalCenter
        objectName: "playheadShadow"
        x: root.trimmer.playheadX - width / 2
        width: 4
        height: 54
        radius: 2
        color: Qt.rgba(0, 0, 0, 0.5)
        visible: root.trimmer.showsPlayhead
    }
    Rectangle {
        anchors.verticalCenter: parent.verticalCenter
        objectName: "playhead"
        x: root.trimmer.playheadX - width / 2
        width: 2
        height: 52
        radius: 1
        color: "white"
        visible: root.trimmer.showsPlayhead
    }
    MouseArea {
        anchors.fill: parent
        containmentMask: root.trimmer
        hoverEnabled: true
        preventStealing: true
        cursorShape: root.trimmer.cursorShape
        onEntered: root.trimmer.move(mouseX, mouseY)
        onPressed: mouse => root.trimmer.press(mouse.x, mouse.y)
        onPositionChanged: mouse => root.trimmer.move(mouse.x, mouse.y)
        onReleased: mouse => root.trimmer.release(mouse.x, mouse.y)
        onCanceled: root.trimmer.cancel()
    }
}
