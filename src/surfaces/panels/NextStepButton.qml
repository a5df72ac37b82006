// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// The way on. Its room is there before it is, so that nothing jumps when it pops in.
Item {
    id: root

    property string title
    property Accent accent: Theme.lime
    property bool isShown: true

    signal clicked
    signal appeared

    implicitHeight: button.implicitHeight
    onIsShownChanged: if (isShown) appeared()

    ActionButton {
        id: button

        objectName: "nextStepButton"
        anchors.fill: parent
        title: root.title
        trailingIcon: "chevron-right"
        accent: root.accent
        isFilled: true
        visible: root.isShown
        onClicked: root.clicked()

        OnboardingAnchor { anchors.fill: parent; target: OnboardingAnchor.NextStepButton }
    }
    states: State { name: "shown"; when: root.isShown }
    transitions: Transition {
        to: "shown"

        ParallelAnimation {
            NumberAnimation {
                target: root
                property: "scale"
                from: 0.92
                to: 1
                duration: Motion.pop
                easing { type: Easing.OutBack; overshoot: 1.4 }
            }
            NumberAnimation { target: root; property: "opacity"; from: 0; to: 1; duration: Motion.colour }
        }
    }
}
