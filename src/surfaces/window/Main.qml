// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// The one window.
Window {
    id: root

    width: 1400
    height: 900
    minimumWidth: 1024
    minimumHeight: 680
    title: "Zumeta"
    color: Theme.window

    CameraSelectionView {
        anchors.fill: parent
        visible: !CameraChoice.isConfirmed
    }
    AlertCard {}
}
