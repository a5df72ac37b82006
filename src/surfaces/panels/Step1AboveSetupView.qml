// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

SideSetupView {
    setup: StepPanelModel.aboveSetup
    onPartialReset: StepPanelModel.resetAboveOnly()
}
