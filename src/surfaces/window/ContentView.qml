// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// The workplace: the picture with its timeline, and beside it the panel of the step. In full screen the picture and
/// its timeline are all.
Item {
    id: root

    readonly property int adjustmentPanelWidth: 390
    readonly property bool isFullScreen: WindowModel.isFullScreen
    readonly property bool isColumnFree: !ExportStatusModel.isExporting // the keyboard reaches nothing under the overlay

    AppMenuBar {
        id: menuBar

        anchors { left: parent.left; right: parent.right; top: parent.top }
        height: root.isFullScreen ? 0 : implicitHeight
        visible: !root.isFullScreen
        z: 2
    }
    InteractiveOnboardingOverlay { // the first that Tab comes to
        anchors.fill: parent
        z: 1
    }
    Item {
        id: column

        anchors { left: parent.left; right: panel.left; top: menuBar.bottom; bottom: parent.bottom }

        FileBar {
            id: fileBar

            anchors { left: parent.left; right: parent.right; top: parent.top }
            height: root.isFullScreen ? 0 : implicitHeight
            visible: !root.isFullScreen
            enabled: root.isColumnFree
        }
        VideoPreviewView {
            id: preview

            anchors { left: parent.left; right: parent.right; top: fileBar.bottom; bottom: timeline.top }
            sceneOrigin: Qt.point(0, menuBar.height + fileBar.height)
            enabled: root.isColumnFree
        }
        TimelineView {
            id: timeline

            anchors { left: parent.left; right: parent.right; bottom: parent.bottom }
            height: implicitHeight
            enabled: root.isColumnFree
        }
    }
    Item { // over the picture, and over the guide
        anchors.fill: column
        z: 2

        ExportProgressOverlay {
            anchors.fill: parent
            picture: preview
        }
        Item {
            x: preview.x
            y: preview.y
            width: preview.width
            height: preview.height

            ExportResultToast {
                anchors { horizontalCenter: parent.horizontalCenter; top: parent.top; topMargin: 20 }
            }
        }
    }
    Loader {
        id: panel

        anchors { right: parent.right; top: menuBar.bottom; bottom: parent.bottom }
        width: active ? root.adjustmentPanelWidth : 0
        active: !root.isFullScreen

        sourceComponent: AdjustmentPanel {}
    }
    ExportSheet {}
    MissingMediaAlertView {
        parent: preview
    }
}
