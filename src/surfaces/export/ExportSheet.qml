// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

ModalCard {
    kind: ModalState.Sheet
}
