// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

Rectangle {
    implicitHeight: 44
    color: Theme.window
}
