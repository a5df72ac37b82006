// SPDX-License-Identifier: GPL-3.0-or-later
pragma Singleton
import QtQuick

/// Colours and lengths (logical pixels) of everything that is drawn. Durations: Motion.
QtObject {
    // Surfaces: the lighter, the nearer.
    readonly property color window: "#0A111E"
    readonly property color panel: "#0F1828"
    readonly property color surface1: "#162136"
    readonly property color surface2: "#1F2C45"
    readonly property color surface2Pressed: "#18233A"
    readonly property color surface3: "#2A3955"
    readonly property color field: "#0A1220"
    readonly property color fieldFocused: "#050B15"
    readonly property color preview: "#0D1F3C"
    readonly property color missing: "#7F0000"

    readonly property color stroke1: Qt.rgba(1, 1, 1, 0.08)
    readonly property color stroke2: Qt.rgba(1, 1, 1, 0.14)
    readonly property color stroke3: Qt.rgba(1, 1, 1, 0.26)

    readonly property color track: Qt.rgba(1, 1, 1, 0.16)
    readonly property color trackTick: Qt.rgba(1, 1, 1, 0.30)

    readonly property color text1: "#F2F6FC"
    readonly property color text2: "#B4C1D4"
    readonly property color text3: "#8796AE" // never on surface3
    readonly property color textOff: "#566379" // disabled only

    readonly property color error: "#FF6B5E"
    readonly property color success: "#4FD98B"
    readonly property color knob: "#DCE5F2" // of a switch that is off
    readonly property color waterline: "#994A9EFF"

    readonly property color scrim: "#A303070E"
    readonly property color spotlightDim: "#B803070E"
    readonly property color exportScrim: "#BD03070E"
    readonly property color plate: "#C7060B14"
    readonly property color linePlate: "#B8060B14" // under the label of a line on the picture
    readonly property color dropCard: "#9E0A111E"

    // The timeline: what is white over it, and the labels of markers.
    readonly property color sliderTrack: Qt.rgba(1, 1, 1, 0.24)
    readonly property color sliderFill: Qt.rgba(1, 1, 1, 0.68)
    readonly property color marker: "#34445F"

    // The accent says which step it is, or what to do next; it never decorates.
    readonly property Accent lime: Accent {
        base: "#B6F23A"
        hover: "#C8F965"
        pressed: "#98D420"
        ink: "#141F05"
        glow: "glow-lime.png"
    }
    readonly property Accent blue: Accent {
        base: "#2EC5FF"
        hover: "#63D5FF"
        pressed: "#12A3E0"
        ink: "#03202E"
        glow: "glow-blue.png"
    }
    readonly property Accent gold: Accent {
        base: "#FFC53D"
        hover: "#FFD569"
        pressed: "#E3A81B"
        ink: "#261A00"
        glow: "glow-gold.png"
    }
    readonly property Accent destructive: Accent {
        base: "#FF6B5E"
        hover: "#FF8579"
        pressed: "#E6594D"
        ink: "#2B0703"
    }

    readonly property int radiusMenuRow: 6
    readonly property int radiusField: 7
    readonly property int radiusChip: 8
    readonly property int radiusToggle: 10
    readonly property int radiusButton: 12
    readonly property int radiusRow: 14
    readonly property int radiusCard: 16
    readonly property int radiusDropCard: 20

    readonly property real strokeEdge: 1
    readonly property real strokeRing: 1.5
    readonly property real strokeFocus: 2
    readonly property int focusDistance: 4 // from the item's edge to the outer edge of its focus ring

    readonly property real pressedScale: 0.98

    function accentOf(step: int): Accent {
        return step === 1 ? lime : step === 2 ? blue : gold;
    }
    function asset(name: string): url {
        return "qrc:/qt/qml/Zumeta/theme/assets/" + name;
    }
}
