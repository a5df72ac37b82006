// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Layouts
import Zumeta

/// Fine-tuning of the composite.
StepView {
    id: root

    property bool showsAdvancedAdjustments: false

    accent: Theme.gold

    RowLayout {
        Layout.preferredHeight: Math.max(30, implicitHeight)
        spacing: 8

        SectionHeader {
            Layout.fillWidth: false
            Layout.maximumWidth: root.width - 36
            title: Words.of("Step 3: Fine Tune")
            accent: root.accent
        }
        ShortcutHelpButton {
            step: 3
            accent: root.accent
        }
    }
    RowLayout {
        Layout.topMargin: 12
        Layout.fillHeight: false
        spacing: 10

        Step3PlaybackButton {
            objectName: "loopButton"
            Layout.fillWidth: true
            Layout.fillHeight: true
            Layout.preferredWidth: 1 // equal halves
            title: Words.of("Loop Playback")
            icon: "repeat"
            isOn: StepPanelModel.isLoopOn
            accent: root.accent
            onClicked: StepPanelModel.toggleLoop()
        }
        Step3PlaybackButton {
            objectName: "slowButton"
            Layout.fillWidth: true
            Layout.fillHeight: true
            Layout.preferredWidth: 1
            title: Words.of("Slow Playback")
            icon: "tortoise"
            isOn: StepPanelModel.isSlowOn
            accent: root.accent
            onClicked: StepPanelModel.toggleSlow()
        }
    }
    Text {
        Layout.fillWidth: true
        Layout.topMargin: 16
        Layout.bottomMargin: 5
        text: Words.of("Basic Adjustments")
        color: Theme.text3
        font: Typography.captionStrong
        wrapMode: Text.Wrap
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }
    Repeater {
        model: AdjustmentRows.basic

        AppearingRow {
            required property int index
            required property ValueRowModel modelData

            Layout.fillWidth: true
            Layout.bottomMargin: 11
            row: modelData
            order: index
            accent: root.accent
        }
    }
    AdvancedAdjustments {
        Layout.fillWidth: true
        isOpen: root.showsAdvancedAdjustments
        accent: root.accent
        onToggled: root.showsAdvancedAdjustments = !root.showsAdvancedAdjustments
    }
    PartialResetButton {
        objectName: "resetValuesButton"
        Layout.fillWidth: true
        title: Words.of("Reset Adjustment Values")
        accent: root.accent
        onClicked: StepPanelModel.resetAdjustmentValues()
    }
    NextStepButton {
        Layout.fillWidth: true
        Layout.topMargin: 8
        title: Words.of("Go to Step 4")
        accent: root.accent
        enabled: StepPanelModel.canExport
        onClicked: StepPanelModel.goToStep4()
    }
    Item {
        Layout.fillHeight: true
        Layout.minimumHeight: 20
    }
    ResetButton {
        Layout.fillWidth: true
        Layout.bottomMargin: 12
        accent: root.accent
    }
}
