// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// A time in a box that stays while its digits run.
Item {
    id: root

    property string text
    property bool isActive: false // it runs with the playhead

    implicitWidth: 70
    implicitHeight: digits.implicitHeight
    Accessible.role: Accessible.StaticText
    Accessible.name: text

    Text {
        id: digits

        anchors.centerIn: parent
        text: root.text
        color: root.isActive ? Theme.text1 : Theme.text3
        font: Typography.time
    }
}
