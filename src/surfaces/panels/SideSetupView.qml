// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Layouts
import Zumeta

/// Setting up one side: what to do, the lock, and the way on.
StepView {
    id: root

    required property SideSetup setup

    signal partialReset

    accent: Theme.accentOf(setup.step)

    SectionHeader {
        Layout.fillWidth: true
        Layout.preferredHeight: Math.max(30, implicitHeight)
        title: Words.of(root.setup.titleKey)
        accent: root.accent
    }
    Rectangle {
        Layout.fillWidth: true
        Layout.topMargin: 12
        implicitHeight: items.implicitHeight + 12
        radius: Theme.radiusButton
        color: Theme.surface1
        border.width: Theme.strokeEdge
        border.color: Theme.stroke1

        ColumnLayout {
            id: items

            anchors { fill: parent; margins: 6 }
            spacing: 0

            Repeater {
                model: root.setup.checklist

                ChecklistItem {
                    required property string textKey

                    required number
                    required isComplete
                    required isActive

                    objectName: "checklistItem" + number
                    Layout.fillWidth: true
                    text: Words.of(textKey)
                    accent: root.accent
                }
            }
        }
    }
    ActionButton {
        objectName: "lockButton"
        Layout.fillWidth: true
        Layout.topMargin: 16
        icon: root.setup.lockIcon
        title: Words.of(root.setup.lockTitleKey)
        accent: root.accent
        isHighlighted: root.setup.isLockHighlighted
        hasGlow: root.setup.isLockHighlighted
        enabled: root.setup.isLockAvailable
        onClicked: root.setup.pressLock()

        OnboardingAnchor { anchors.fill: parent; target: OnboardingAnchor.LockButton }
    }
    NextStepButton {
        id: nextStep

        Layout.fillWidth: true
        Layout.topMargin: 12
        title: Words.of(root.setup.nextStepKey)
        accent: root.accent
        isShown: root.setup.canGoToNextStep
        onAppeared: root.sightWanted(nextStep)
        onClicked: StepPanelModel.goToStep(root.setup.step + 1)
    }
    Item {
        Layout.fillHeight: true
        Layout.minimumHeight: 24
    }
    Rectangle {
        Layout.fillWidth: true
        implicitHeight: 1
        color: Theme.stroke1
    }
    GridLayout {
        readonly property bool fits: Math.max(partial.implicitWidth, all.implicitWidth) <= (width - columnSpacing) / 2

        Layout.fillWidth: true
        Layout.topMargin: 8
        Layout.bottomMargin: 12
        columns: fits ? 2 : 1
        columnSpacing: 8
        rowSpacing: 4

        PartialResetButton {
            id: partial

            objectName: "partialResetButton"
            Layout.fillWidth: true
            Layout.preferredWidth: 1 // equal halves
            title: Words.of(root.setup.partialResetKey)
            accent: root.accent
            onClicked: root.partialReset()
        }
        ResetButton {
            id: all

            Layout.fillWidth: true
            Layout.preferredWidth: 1
            accent: root.accent
        }
    }
}
