// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// What every button is made of: hover, press, and the keyboard's Return; Space belongs to playback. A press that is
/// taken away, by a hidden window or another gesture, is none.
FocusScope {
    id: root

    readonly property bool hovered: mouse.containsMouse && enabled
    readonly property bool pressed: mouse.pressed && mouse.containsMouse
    property string text // what a screen reader says

    signal clicked

    activeFocusOnTab: true
    Accessible.role: Accessible.Button
    Accessible.name: text
    Accessible.focusable: true
    Accessible.onPressAction: if (enabled) clicked()
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()

    MouseArea {
        id: mouse

        anchors.fill: parent
        hoverEnabled: true
        cursorShape: Qt.PointingHandCursor
        onClicked: root.clicked()
    }
}
