// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// One adjustable number: its label, minus, field and plus, and its track under them.
Item {
    id: root

    required property ValueRowModel row
    property Accent accent: Theme.gold
    readonly property bool isFocused: field.activeFocus
    readonly property bool isSeenWhole: true // the number is nothing without its track
    readonly property string name: Words.of(row.label)

    objectName: row.label
    implicitWidth: 350
    implicitHeight: head.height + 5 + track.implicitHeight
    onVisibleChanged: if (!visible) row.clearFocus()
    Component.onDestruction: row?.goAway()

    Item {
        id: head

        width: parent.width
        height: Math.max(28, label.height)

        Text {
            id: label

            anchors.verticalCenter: parent.verticalCenter
            width: Math.min(implicitWidth, minus.x - 6 - (accessory.visible ? accessory.width + 6 : 0))
            text: root.name
            color: root.enabled ? Theme.text1 : Theme.textOff
            font: root.row.labelFontSize < 15 ? Typography.smallStrong : Typography.valueLabel
            wrapMode: Text.Wrap
            maximumLineCount: 2
            elide: Text.ElideRight
            Accessible.ignored: true // the field says it
        }
        Icon {
            id: accessory

            anchors { left: label.right; leftMargin: 6; verticalCenter: parent.verticalCenter }
            name: root.row.labelAccessorySystemImage
            size: root.row.labelFontSize - 2
            color: label.color
            visible: name
        }
        StepperButton {
            id: minus

            anchors { right: field.left; rightMargin: 6; verticalCenter: parent.verticalCenter }
            objectName: root.objectName + " minus"
            icon: "minus"
            text: Words.of("Decrease %@").replace("%@", root.name)
            isAtBound: !root.row.canStepDown
            onPressBegan: root.row.pressMinus()
            onPressEnded: root.row.releaseStepper()
            onStepped: root.row.stepDown()
        }
        ValueField {
            id: field

            anchors { right: plus.left; rightMargin: 6; verticalCenter: parent.verticalCenter }
            objectName: root.objectName + " field"
            row: root.row
            accent: root.accent
            Accessible.name: root.name
            Accessible.description: root.row.unit ? Words.of(root.row.unit) : ""
        }
        StepperButton {
            id: plus

            anchors { right: parent.right; verticalCenter: parent.verticalCenter }
            objectName: root.objectName + " plus"
            icon: "plus"
            text: Words.of("Increase %@").replace("%@", root.name)
            isAtBound: !root.row.canStepUp
            onPressBegan: root.row.pressPlus()
            onPressEnded: root.row.releaseStepper()
            onStepped: root.row.stepUp()
        }
    }
    ValueTrack {
        id: track

        anchors { left: parent.left; right: parent.right; top: head.bottom; topMargin: 5 }
        objectName: root.objectName + " track"
        row: root.row
        accent: root.accent
        text: root.name
        isFocused: root.isFocused
    }
}
