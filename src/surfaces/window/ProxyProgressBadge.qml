// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// How far the proxy of one side is, or that there will be none. It fades away when the proxy is done.
Rectangle {
    id: root

    required property SideFile file
    required property string label
    required property Accent accent
    property bool isCompact: false
    readonly property bool hasFailed: file.hasProxyFailed
    readonly property color color1: hasFailed ? Theme.error : accent.base
    readonly property bool isThere: file.isProxyGenerated || hasFailed
    readonly property real percentWidth: hasFailed ? 0 : 6 + percent.width
    readonly property real fullWidth: visible ? 10 + 14 + 6 + labelText.implicitWidth + percentWidth + 12 : 0

    implicitWidth: isCompact ? fullWidth - labelText.implicitWidth - 6 : fullWidth
    implicitHeight: 26
    radius: 13
    color: hasFailed ? Qt.alpha(Theme.error, 0.12) : accent.dim
    border { width: Theme.strokeEdge; color: Qt.alpha(color1, 0.4) }
    opacity: isThere ? 1 : 0
    visible: opacity > 0
    Accessible.role: Accessible.ProgressBar
    Accessible.name: label + (hasFailed ? "" : " " + percent.text)

    Behavior on opacity {
        enabled: !root.isThere
        NumberAnimation { duration: Motion.smooth }
    }

    ProgressRing {
        id: ring

        x: 10
        anchors.verticalCenter: parent.verticalCenter
        width: 14
        height: 14
        strokeWidth: 2
        progress: root.file.proxyPercent / 100
        color: root.accent.base
        trackColor: Qt.alpha(root.accent.base, 0.25)
        visible: !root.hasFailed
    }
    Icon {
        anchors.centerIn: ring
        name: "xmark"
        size: 14
        color: Theme.error
        visible: root.hasFailed
    }
    Text {
        id: labelText

        anchors { left: ring.right; leftMargin: 6; verticalCenter: parent.verticalCenter }
        text: root.label
        color: root.hasFailed ? Theme.error : Theme.text1
        font: Typography.caption
        visible: !root.isCompact
    }
    Text {
        id: percent

        // As wide as any number but the last, so that nothing beside it moves while it runs.
        anchors { right: parent.right; rightMargin: 12; verticalCenter: parent.verticalCenter }
        width: widest.width
        text: root.file.proxyPercent + "%"
        color: root.accent.base
        font: Typography.caption
        visible: !root.hasFailed

        TextMetrics {
            id: widest

            font: percent.font
            text: "00%"
        }
    }
}
