// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// A badge for each proxy that is in the making.
Row {
    id: root

    property bool isCompact: false
    readonly property real fullWidth: above.fullWidth + below.fullWidth + spacing

    spacing: 8

    ProxyProgressBadge {
        id: above

        objectName: "aboveProxyBadge"
        file: FilesModel.above
        label: Words.of("Above")
        accent: Theme.lime
        isCompact: root.isCompact
    }
    ProxyProgressBadge {
        id: below

        objectName: "belowProxyBadge"
        file: FilesModel.below
        label: Words.of("Below")
        accent: Theme.blue
        isCompact: root.isCompact
    }
}
