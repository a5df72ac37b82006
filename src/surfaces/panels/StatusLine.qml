// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// What has become of the last export.
Text {
    property bool isError: false

    color: isError ? Theme.error : Theme.text2
    font: Typography.smallText
    wrapMode: Text.Wrap
    horizontalAlignment: Text.AlignHCenter
    visible: text
    Accessible.role: Accessible.StaticText
    Accessible.name: text
}
