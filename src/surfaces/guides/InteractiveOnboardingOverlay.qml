// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// The guide for newcomers: all is dimmed but what is to be touched next, and a card says what to do there. A press on
/// what is dimmed waves the card away.
Item {
    id: root

    readonly property Accent accent: Theme.accentOf(WindowModel.step)

    objectName: "onboardingOverlay"
    opacity: OnboardingModel.isPresented ? 1 : 0
    visible: opacity > 0
    enabled: OnboardingModel.isPresented

    Behavior on opacity { NumberAnimation { duration: Motion.smooth; easing.type: Easing.OutCubic } }

    SpotlightDimLayer {
        id: layer

        objectName: "spotlightDimLayer"
        anchors.fill: parent
        model: OnboardingModel
        dimColor: Theme.spotlightDim
        ringColor: root.accent.base
        ringWidth: Theme.strokeFocus
        onPressed: OnboardingModel.dismissGuide()
    }
    NumberAnimation {
        id: travel

        target: layer
        property: "progress"
        from: 0
        to: 1
        duration: Motion.smooth
        easing.type: Easing.OutCubic
    }
    Connections {
        target: OnboardingModel

        function onCardChanged() { travel.restart(); }
    }
    OnboardingCard {
        objectName: "onboardingCard"
        card: OnboardingModel.firstCard
        accent: root.accent
    }
    OnboardingCard {
        objectName: "onboardingSecondCard"
        card: OnboardingModel.secondCard
        accent: root.accent
    }
}
