// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// The one window.
Window {
    width: 1400
    height: 900
    minimumWidth: 1024
    minimumHeight: 680
    title: "Zumeta"
    color: Theme.window

    ContentView {
        anchors.fill: parent
        visible: !WindowModel.isStartScreenShown
    }
    CameraSelectionView {
        anchors.fill: parent
        visible: WindowModel.isStartScreenShown
    }
    AlertCard {}
}
