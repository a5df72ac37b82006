// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T
import Zumeta

/// Whatever opens over the window. While it is there, the window's shortcuts, menus and drops rest.
T.Popup {
    id: root

    required property int kind // of ModalState
    property bool isEntered: false

    function report(isThere: bool) {
        if (isThere === isEntered)
            return;
        isEntered = isThere;
        isThere ? ModalState.enter(kind) : ModalState.leave(kind);
    }

    onVisibleChanged: report(visible)
    Component.onDestruction: report(false)
}
