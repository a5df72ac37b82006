// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Layouts
import Zumeta

/// The column beside the picture: what the step asks for. It scrolls by wheel and touch; a mouse that drags in it drags
/// a value.
Rectangle {
    id: root

    objectName: "adjustmentPanel"
    color: Theme.panel

    Flickable {
        id: view

        objectName: "panelView"
        anchors.fill: parent
        contentWidth: width
        contentHeight: Math.max(height, column.implicitHeight)
        boundsBehavior: Flickable.StopAtBounds
        flickableDirection: Flickable.VerticalFlick
        interactive: !mouse.active
        clip: true
        onMovementStarted: scrolling.stop()

        ColumnLayout {
            id: column

            x: 20
            width: view.width - 40
            height: view.contentHeight
            spacing: 0

            PanelHeader {
                Layout.fillWidth: true
                Layout.preferredHeight: 52
                accent: Theme.accentOf(StepPanelModel.step)
            }
            StepIndicatorBar {
                Layout.fillWidth: true
                Layout.bottomMargin: 13
                currentStep: StepPanelModel.step
                maxReachedStep: StepPanelModel.maxReachedStep
                onStepTap: step => StepPanelModel.goToStep(step)
            }
            Loader {
                id: stepView

                Layout.fillWidth: true
                Layout.fillHeight: true
                sourceComponent: [step1, step2, step3, step4][StepPanelModel.step - 1]
                onLoaded: view.contentY = 0

                Component { id: step1; Step1AboveSetupView {} }
                Component { id: step2; Step2BelowSetupView {} }
                Component { id: step3; Step3CompositionView {} }
                Component { id: step4; Step4ExportView {} }
            }
        }
    }
    Item {
        anchors.fill: parent // above all, so that it is told of a press before the view is

        PointHandler {
            id: mouse

            acceptedDevices: PointerDevice.Mouse
        }
    }
    FocusScroller {
        id: scroller

        anchors.fill: view
        content: view.contentItem
        onScrollWanted: top => scrolling.scrollTo(top)
    }
    Connections {
        target: stepView.item
        ignoreUnknownSignals: true

        function onSightWanted(part: Item) { scroller.show(part); }
    }
    Connections {
        target: OnboardingModel

        function onSightWanted(part: rect) { scroller.showPart(part); }
    }
    NumberAnimation {
        id: scrolling

        function scrollTo(top: real) {
            to = top;
            restart();
        }

        target: view
        property: "contentY"
        duration: Motion.smooth
        easing.type: Easing.OutCubic
    }
    Rectangle {
        anchors { left: parent.left; right: parent.right; bottom: parent.bottom }
        height: 36
        gradient: Gradient {
            GradientStop { position: 0; color: Qt.alpha(Theme.panel, 0) }
            GradientStop { position: 1; color: Theme.panel }
        }
        visible: !view.atYEnd
    }
    Rectangle {
        anchors { left: parent.left; top: parent.top; bottom: parent.bottom }
        width: 1
        color: Theme.stroke1
    }
}
