// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Layouts
import Zumeta

/// The strip under the picture: play, time, slider, length and full screen. Markers rise above it, so it neither clips
/// nor lies under the picture.
Rectangle {
    id: root

    readonly property Accent accent: Theme.accentOf(WindowModel.step)

    objectName: "timelineStrip"
    implicitHeight: TimelineModel.height
    color: Theme.window

    Behavior on implicitHeight { NumberAnimation { duration: Motion.smooth; easing.type: Easing.OutCubic } }
    Binding {
        target: TimelineModel
        property: "isWindowActive"
        value: root.Window.active
    }

    Rectangle {
        width: parent.width
        height: 1
        color: Theme.stroke1
    }
    RowLayout {
        anchors { left: parent.left; right: parent.right; top: parent.top; leftMargin: 16; rightMargin: 16; topMargin: 12 }
        height: 44
        spacing: 16

        PlayPauseButton {
            objectName: "playButton"
            text: Words.of(TimelineModel.playTextKey)
            icon: TimelineModel.playIcon
            hasMedia: TimelineModel.hasMedia
            accent: root.accent
            onClicked: TimelineModel.togglePlayback()
        }
        TimeDisplay {
            objectName: "timeDisplay"
            text: TimelineModel.timeText
            isActive: true
        }
        Loader {
            Layout.fillWidth: true
            Layout.preferredHeight: TimelineModel.sliderBoxHeight
            sourceComponent: TimelineModel.hasTrimmer ? trimmer : slider
        }
        TimeDisplay {
            objectName: "lengthDisplay"
            text: TimelineModel.lengthText
            visible: !TimelineModel.lengthHasIcon
        }
        Row {
            objectName: "exportLength"
            spacing: 4
            visible: TimelineModel.lengthHasIcon

            Icon {
                anchors.verticalCenter: parent.verticalCenter
                name: "arrow-left-and-right-circle"
                color: Theme.gold.base
            }
            Text {
                anchors.verticalCenter: parent.verticalCenter
                text: TimelineModel.lengthText
                color: Theme.gold.base
                font: Typography.time
                Accessible.role: Accessible.StaticText
                Accessible.name: text
            }
        }
        IconButton {
            objectName: "fullScreenButton"
            icon: TimelineModel.fullScreenIcon
            text: Words.of(TimelineModel.fullScreenTextKey)
            accent: root.accent
            visible: TimelineModel.showsFullScreenButton
            onClicked: TimelineModel.toggleFullScreen()
        }
    }
    Component {
        id: slider

        SimpleTimelineSlider {
            slider: TimelineModel.slider
            accent: Theme.accentOf(WindowModel.step)
        }
    }
    Component {
        id: trimmer

        TrimmerTimelineSlider { trimmer: TimelineModel.trimmer }
    }
}
