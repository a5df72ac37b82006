// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// The four steps, where the user is in them, and the way to any other.
Item {
    id: root

    required property int currentStep
    required property int maxReachedStep
    readonly property real cellWidth: width / steps.count

    signal stepTap(int step)

    implicitHeight: 52 // the pills, their labels, and the ring of the current one

    Repeater {
        id: steps

        model: ["Above", "Below", "Adjust", "Export"]

        Item {
            id: cell

            required property int index
            required property string modelData

            x: index * root.cellWidth
            y: 2
            width: root.cellWidth
            height: pill.implicitHeight

            StepPill {
                id: pill

                objectName: "stepPill" + step
                anchors.horizontalCenter: parent.horizontalCenter
                step: cell.index + 1
                label: Words.of(cell.modelData)
                currentStep: root.currentStep
                maxReachedStep: root.maxReachedStep
                onClicked: root.stepTap(step)
            }
            ConnectorLine {
                x: (parent.width + 46) / 2 + 7
                y: 12
                width: parent.width - 46 - 14
                isCompleted: StepPanelModel.isConnectorCompleted(pill.step, root.maxReachedStep)
                accent: pill.accent
                visible: cell.index + 1 < steps.count
            }
        }
    }
}
