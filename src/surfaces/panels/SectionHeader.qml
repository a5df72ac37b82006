// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Layouts
import Zumeta

/// The title of a step.
RowLayout {
    id: root

    property string title
    property Accent accent: Theme.lime
    property int accentHeight: 22

    spacing: 10

    Rectangle {
        implicitWidth: 4
        implicitHeight: root.accentHeight
        radius: 2
        color: root.accent.base
    }
    Text {
        id: label

        Layout.fillWidth: true
        text: root.title
        color: Theme.text1
        font: Typography.sectionHeader
        wrapMode: Text.Wrap
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }
}
