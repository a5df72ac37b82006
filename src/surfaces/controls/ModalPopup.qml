// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T
import Zumeta

/// Whatever opens over the window. While it is there, the window's shortcuts, menus and drops rest.
T.Popup {
    id: root

    required property int kind // of ModalState
    property bool isEntered: false
    property Item lender: null // had the focus before, and is given it back

    function report(isThere: bool) {
        if (isThere === isEntered)
            return;
        isEntered = isThere;
        isThere ? ModalState.enter(kind) : ModalState.leave(kind);
    }

    /// Unless something else has taken it by now.
    function giveFocusBack() {
        const holder = parent ? parent.Window.activeFocusItem : null;
        if (lender && lender.visible && (!holder || holder === parent.Window.contentItem))
            lender.forceActiveFocus(Qt.PopupFocusReason);
        lender = null;
    }

    onAboutToShow: lender = parent ? parent.Window.activeFocusItem : null
    onClosed: giveFocusBack()
    onVisibleChanged: report(visible)
    Component.onDestruction: report(false)
}
