// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

SideSetupView {
    setup: StepPanelModel.belowSetup
    onPartialReset: StepPanelModel.resetBelowOnly()
}
