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

            y: 44
            width: parent.width
            height: parent.height - y - 68
            color: Theme.preview
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
