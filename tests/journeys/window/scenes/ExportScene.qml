// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// The workplace's places without what stands there, and in front of them what an export and missing videos show.
Window {
    id: root

    color: Theme.window

    Rectangle {
        anchors { right: parent.right; top: column.top; bottom: parent.bottom }
        width: 390
        color: Theme.panel
    }
    Item {
        id: column

        y: 30
        width: root.width - 390
        height: root.height - y

        Rectangle {
            id: preview

            property int touched: 0 // how often the pointer has reached it

            objectName: "preview"
            y: 44
            width: parent.width
            height: parent.height - y - 68
            color: Theme.preview

            MouseArea {
                anchors.fill: parent
                acceptedButtons: Qt.AllButtons
                hoverEnabled: true
                onPressed: ++preview.touched
                onEntered: ++preview.touched
                onWheel: ++preview.touched
            }
        }
        ExportProgressOverlay {
            anchors.fill: parent
            picture: preview
        }
        ExportResultToast {
            anchors { horizontalCenter: preview.horizontalCenter; top: preview.top; topMargin: 20 }
        }
    }
    ExportSheet {}
    MissingMediaAlertView {
        parent: preview
    }
    AlertCard {}
}
