// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// One card of the guide: how far the user is, what to do, and the ways to be left alone.
FocusScope {
    id: root

    required property OnboardingCardModel card
    required property Accent accent

    x: card.frame.x
    y: card.frame.y
    width: card.frame.width
    height: card.frame.height
    visible: card.isShown
    Accessible.role: Accessible.AlertMessage
    Accessible.name: title.text
    Accessible.description: message.text
    Keys.onEscapePressed: OnboardingModel.dismissGuide()

    Binding {
        target: root.card
        property: "contentHeight"
        value: texts.implicitHeight + 16 + ways.height + 2 * 18
    }
    Connections {
        target: OnboardingModel

        function onCardChanged() { arrival.restart(); }
    }
    NumberAnimation {
        id: arrival

        target: root
        property: "opacity"
        from: 0
        to: 1
        duration: Motion.smooth
        easing.type: Easing.OutCubic
    }

    TextMetrics {
        id: okWord

        text: Words.of("OK")
        font: Typography.buttonLarge
    }

    MouseArea { // the layer beneath would take the press for one beside the card
        anchors.fill: parent
        acceptedButtons: Qt.AllButtons
        hoverEnabled: true
        onWheel: wheel => wheel.accepted = true
    }
    Shadow {}
    Rectangle {
        anchors.fill: parent
        radius: Theme.radiusCard
        color: Theme.surface1
        border { width: Theme.strokeEdge; color: Theme.stroke2 }
    }
    Column {
        id: texts

        anchors { left: parent.left; right: parent.right; top: parent.top; margins: 18 }
        spacing: 0

        Rectangle {
            width: progress.implicitWidth + 20
            height: 22
            radius: 11
            color: root.accent.dim

            Text {
                id: progress

                anchors.centerIn: parent
                text: root.card.progress
                color: root.accent.base
                font: Typography.captionStrong
            }
        }
        Item { width: 1; height: 10 }
        Text {
            id: title

            width: parent.width
            text: Words.of(root.card.titleKey)
            color: Theme.text1
            font: Typography.alertTitle
            lineHeightMode: Text.FixedHeight
            lineHeight: 22 + Typography.extraLineHeight
            wrapMode: Text.Wrap
            Accessible.ignored: true // the card says it
        }
        Item { width: 1; height: 4 }
        Text {
            id: message

            width: parent.width
            text: Words.of(root.card.messageKey)
            color: Theme.text2
            font: Typography.body
            lineHeightMode: Text.FixedHeight
            lineHeight: 20 + Typography.extraLineHeight
            wrapMode: Text.Wrap
            Accessible.ignored: true
        }
    }
    Item {
        id: ways

        anchors { left: parent.left; right: parent.right; bottom: parent.bottom; margins: 18 }
        height: Math.max(skip.height, 36)

        ActionButton {
            id: ok

            objectName: root.objectName + "Ok"
            anchors { right: parent.right; verticalCenter: parent.verticalCenter }
            width: Math.max(64, Math.ceil(okWord.advanceWidth) + 36)
            implicitHeight: 36
            title: okWord.text
            isFilled: true
            accent: root.accent
            onClicked: OnboardingModel.dismissGuide()
        }
        QuietButton {
            id: skip

            objectName: root.objectName + "Skip"
            anchors { left: parent.left; leftMargin: -14; verticalCenter: parent.verticalCenter } // its words begin where the others do
            width: Math.min(implicitWidth, ok.x + 14 - 8)
            title: Words.of("Skip Guide")
            accent: root.accent
            onClicked: OnboardingModel.skipGuide()
        }
    }
}
