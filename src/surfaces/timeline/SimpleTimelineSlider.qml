// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// A scrubber over the whole length.
Item {
    id: root

    required property SimpleSliderModel slider
    property Accent accent: Theme.lime
    // What a screen reader takes from a slider.
    readonly property real value: TimelineModel.time
    readonly property real minimumValue: 0
    readonly property real maximumValue: TimelineModel.duration
    readonly property size thumbSize: slider.thumbSize(area.containsMouse, slider.isDragging)
    readonly property real strength: enabled ? 1 : 0.4

    objectName: "simpleSlider"
    enabled: slider.isEnabled
    activeFocusOnTab: true
    Accessible.role: Accessible.Slider
    Accessible.name: Words.of("Playhead")
    Accessible.focusable: enabled
    Accessible.onIncreaseAction: TimelineModel.scrub(Qt.Key_PageUp, Qt.ShiftModifier)
    Accessible.onDecreaseAction: TimelineModel.scrub(Qt.Key_PageDown, Qt.ShiftModifier)
    Keys.onPressed: event => event.accepted = TimelineModel.scrub(event.key, event.modifiers)

    Binding {
        target: root.slider
        property: "width"
        value: root.width
    }

    OnboardingAnchor { anchors.fill: parent; target: OnboardingAnchor.Timeline }
    Rectangle {
        anchors.verticalCenter: parent.verticalCenter
        width: parent.width
        height: 8
        radius: 4
        color: Theme.sliderTrack
        opacity: root.strength
    }
    Rectangle {
        anchors.verticalCenter: parent.verticalCenter
        objectName: "sliderFill"
        width: root.slider.filledWidth
        height: 8
        radius: 4
        color: Theme.sliderFill
        opacity: root.strength
    }
    // Solid in its own colour where the slider is faint: the track must not show through it.
    Rectangle {
        objectName: "sliderThumb"
        x: root.slider.thumbCentre - width / 2
        y: (parent.height - height) / 2
        width: root.thumbSize.width
        height: root.thumbSize.height
        radius: height / 2
        color: Qt.tint(Theme.window, Qt.rgba(1, 1, 1, root.strength))
        border.width: Theme.strokeEdge
        border.color: Qt.rgba(0, 0, 0, 0.35)

        Behavior on width { NumberAnimation { duration: Motion.thumb; easing.type: Easing.InOutQuad } }
        Behavior on height { NumberAnimation { duration: Motion.thumb; easing.type: Easing.InOutQuad } }

        OnboardingAnchor { anchors.fill: parent; target: OnboardingAnchor.Timeline } // it hangs out at the low end
    }
    KnobInstructionTooltip {
        objectName: "thumbDragHint"
        x: root.slider.hintCentre.x - width / 2
        y: root.slider.hintCentre.y - height / 2
        text: Words.of("Drag Here")
        accent: root.accent
        opacity: root.slider.showsHint ? 1 : 0
        visible: opacity > 0

        Behavior on opacity {
            enabled: root.slider.isHintAnimated
            NumberAnimation { duration: Motion.smooth; easing.type: Easing.OutCubic }
        }

        OnboardingAnchor { anchors.fill: parent; target: OnboardingAnchor.TimelineInstruction }
    }
    FocusRing {
        control: root
        controlRadius: Theme.radiusChip
        border.color: root.accent.base
    }
    MouseArea {
        id: area

        // At the low end half of the thumb hangs out: that half can be taken too.
        readonly property real hang: 11

        anchors.fill: parent
        anchors.leftMargin: -hang
        hoverEnabled: true
        preventStealing: true
        cursorShape: Qt.PointingHandCursor
        onPressed: mouse => root.slider.press(mouse.x - hang)
        onPositionChanged: mouse => root.slider.move(mouse.x - hang)
        onReleased: mouse => root.slider.release(mouse.x - hang)
        onCanceled: root.slider.cancel()
    }
}
