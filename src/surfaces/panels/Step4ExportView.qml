// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Layouts
import Zumeta

/// The range that is exported, and the export.
StepView {
    id: root

    accent: Theme.gold

    RowLayout {
        Layout.preferredHeight: Math.max(30, implicitHeight)
        spacing: 8

        SectionHeader {
            Layout.fillWidth: false
            Layout.maximumWidth: root.width - 36
            title: Words.of("Step 4: Export")
            accent: root.accent
        }
        ShortcutHelpButton {
            step: 4
            accent: root.accent
        }
    }
    ExportLengthRow {
        Layout.fillWidth: true
        Layout.topMargin: 12
        Layout.bottomMargin: 14
        accent: root.accent
    }
    Repeater {
        model: AdjustmentRows.trim

        StepperSliderRow {
            required property int index
            required property ValueRowModel modelData

            Layout.fillWidth: true
            Layout.bottomMargin: index === 0 ? 11 : 13
            row: modelData
            accent: root.accent

            OnboardingAnchor { anchors.fill: parent; target: OnboardingAnchor.Step4Adjustments }
        }
    }
    RowLayout {
        Layout.fillHeight: false
        spacing: 8

        TrimMarkerButton {
            objectName: "trimStartButton"
            Layout.fillWidth: true
            Layout.fillHeight: true
            Layout.preferredWidth: 1 // equal halves
            title: Words.of("Start to Selected Marker")
            icon: "arrow-left-to-line-compact"
            isDimmed: Step4Actions.isTrimStartDimmed
            accent: root.accent
            onClicked: Step4Actions.setTrimStartToPlayhead()

            OnboardingAnchor { anchors.fill: parent; target: OnboardingAnchor.Step4Adjustments }
        }
        TrimMarkerButton {
            objectName: "trimEndButton"
            Layout.fillWidth: true
            Layout.fillHeight: true
            Layout.preferredWidth: 1
            title: Words.of("End to Selected Marker")
            trailingIcon: "arrow-right-to-line-compact"
            isDimmed: Step4Actions.isTrimEndDimmed
            accent: root.accent
            onClicked: Step4Actions.setTrimEndToPlayhead()

            OnboardingAnchor { anchors.fill: parent; target: OnboardingAnchor.Step4Adjustments }
        }
    }
    RowLayout {
        Layout.topMargin: 8
        Layout.fillHeight: false
        spacing: 8

        TrimMarkerButton {
            objectName: "addMarkerButton"
            Layout.fillWidth: true
            Layout.fillHeight: true
            title: Words.of("Add Timeline Marker")
            icon: "plus-circle"
            accent: root.accent
            onClicked: Step4Actions.addMarker()

            OnboardingAnchor { anchors.fill: parent; target: OnboardingAnchor.Step4Adjustments }
        }
        TrimMarkerButton {
            objectName: "clearMarkersButton"
            Layout.fillHeight: true
            Layout.preferredWidth: Math.min(Math.max(implicitWidth, 122), 160)
            title: Words.of("Clear Timeline Markers")
            icon: "trash"
            accent: root.accent
            onClicked: Step4Actions.clearMarkers()

            OnboardingAnchor { anchors.fill: parent; target: OnboardingAnchor.Step4Adjustments }
        }
    }
    PartialResetButton {
        objectName: "resetTrimsButton"
        Layout.fillWidth: true
        Layout.topMargin: 6
        title: Words.of("Reset Trim Markers")
        accent: root.accent
        onClicked: Step4Actions.resetTrims()
    }
    ActionButton {
        objectName: "exportButton"
        Layout.fillWidth: true
        Layout.topMargin: 12
        icon: "square-and-arrow-up"
        title: Words.of(Step4Actions.exportTitleKey)
        accent: root.accent
        isFilled: true
        hasGlow: true
        enabled: !Step4Actions.isExporting
        onClicked: Step4Actions.openExportSheet()

        OnboardingAnchor { anchors.fill: parent; target: OnboardingAnchor.ExportButton }
    }
    StatusLine {
        Layout.fillWidth: true
        Layout.topMargin: 10
        text: Step4Actions.statusMessage
        isError: Step4Actions.isStatusError
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
