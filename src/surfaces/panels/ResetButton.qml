// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// Begins all anew.
PartialResetButton {
    objectName: "resetButton"
    title: Words.of("Reset All")
    icon: ""
    takesAllAway: true
    onClicked: StepPanelModel.startOver()
}
