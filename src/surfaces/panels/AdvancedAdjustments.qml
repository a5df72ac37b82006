// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Layouts
import Zumeta

/// The adjustments that are rarely needed, behind a row that opens them.
ColumnLayout {
    id: root

    property bool isOpen: false
    property Accent accent: Theme.gold

    signal toggled

    spacing: 0

    Rectangle {
        Layout.fillWidth: true
        implicitHeight: 1
        color: Theme.stroke1
    }
    PressableArea {
        id: head

        objectName: "advancedDisclosure"
        Layout.fillWidth: true
        implicitHeight: Math.max(39, label.implicitHeight + 12)
        text: label.text
        Accessible.checkable: true
        Accessible.checked: root.isOpen
        onClicked: root.toggled()

        OnboardingAnchor { anchors.fill: parent; target: OnboardingAnchor.Step3Adjustments }
        Icon {
            anchors.verticalCenter: parent.verticalCenter
            name: "chevron-right"
            size: 16
            color: root.isOpen ? root.accent.base : head.hovered ? Theme.text1 : Theme.text3
            rotation: root.isOpen ? 90 : 0

            Behavior on rotation { NumberAnimation { duration: Motion.smooth; easing.type: Easing.OutCubic } }
        }
        Text {
            id: label

            anchors { left: parent.left; leftMargin: 24; right: parent.right; verticalCenter: parent.verticalCenter }
            text: Words.of("Advanced Adjustments")
            color: Theme.text1
            font: Typography.bodyStrong
            wrapMode: Text.Wrap
        }
        FocusRing {
            control: head
            controlRadius: Theme.radiusChip
            anchors.margins: 0
            border.color: root.accent.base
        }
    }
    Repeater {
        model: root.isOpen ? AdjustmentRows.advanced : null

        AppearingRow {
            required property int index
            required property ValueRowModel modelData

            Layout.fillWidth: true
            Layout.bottomMargin: 11
            row: modelData
            order: index
            accent: root.accent

            OnboardingAnchor { anchors.fill: parent; target: OnboardingAnchor.Step3Adjustments }
        }
    }
}
