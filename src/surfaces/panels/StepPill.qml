// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// One step of the bar. It may be gone to at any time.
PressableArea {
    id: root

    required property int step
    required property string label
    required property int currentStep
    required property int maxReachedStep
    property Accent accent: Theme.accentOf(step)
    readonly property bool hasRing: activeFocus && KeyboardFocus.isShown
    readonly property int look: StepPanelModel.pillLook(step, currentStep, maxReachedStep)
    readonly property bool isCurrent: look === StepPanelModel.Current
    readonly property bool isVisited: look === StepPanelModel.Visited || look === StepPanelModel.Done

    text: label
    implicitWidth: 87
    implicitHeight: 26 + 7 + name.implicitHeight
    Accessible.role: Accessible.PageTab
    Accessible.checked: isCurrent

    Rectangle {
        id: pill

        anchors.horizontalCenter: parent.horizontalCenter
        width: 46
        height: 26
        radius: 13
        scale: root.pressed ? Theme.pressedScale : 1
        color: root.isCurrent ? (root.pressed ? root.accent.pressed : root.hovered ? root.accent.hover : root.accent.base)
             : root.pressed ? Qt.alpha(root.accent.base, 0.24) : root.isVisited ? root.accent.dim : "transparent"
        border.width: root.isCurrent ? 0 : Theme.strokeEdge
        border.color: root.hovered ? root.accent.base
                    : root.isVisited ? Qt.alpha(root.accent.base, 0.55) : Theme.stroke3

        Behavior on color { ColorAnimation { duration: Motion.step; easing.type: Easing.InOutCubic } }
        Behavior on border.color { ColorAnimation { duration: Motion.colour } }
        Behavior on scale { NumberAnimation { duration: Motion.tap; easing.type: Easing.OutQuad } }

        Text {
            anchors.centerIn: parent
            text: root.step
            color: root.isCurrent ? root.accent.ink : root.isVisited ? root.accent.base : Theme.text3
            font: Typography.pillNumber
            visible: root.look !== StepPanelModel.Done
        }
        Icon {
            anchors.centerIn: parent
            name: "checkmark"
            size: 14
            color: root.accent.base
            visible: root.look === StepPanelModel.Done
        }
        // Also the ring of the keyboard's focus.
        Rectangle {
            anchors.fill: parent
            anchors.margins: -5
            radius: height / 2
            color: "transparent"
            border.width: root.hasRing ? Theme.strokeFocus : Theme.strokeRing
            border.color: root.hasRing && root.isCurrent ? "white" : root.accent.base
            visible: root.isCurrent || root.hasRing
        }
    }
    Text {
        id: name

        anchors { horizontalCenter: parent.horizontalCenter; top: pill.bottom; topMargin: 7 }
        width: Math.min(implicitWidth, 86)
        text: root.label
        color: root.isCurrent ? Theme.text1 : root.isVisited ? Theme.text2 : Theme.text3
        font: root.isCurrent ? Typography.captionStrong : Typography.caption
        elide: Text.ElideRight
    }
    Tooltip {
        text: root.label
        visible: name.truncated && (root.hovered || root.activeFocus)
    }
}
