// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// The height of the water that was picked, and the one under the pointer.
Item {
    id: root

    required property Accent accent

    GuideLineBand {
        objectName: "fixedLine"
        width: parent.width
        position: PreviewModel.fixedLineY
        accent: root.accent
        isFixed: true
        label: Words.of(PreviewModel.fixedLineLabelKey)
        visible: PreviewModel.hasFixedLine
    }
    GuideLineBand {
        objectName: "pointerLine"
        width: parent.width
        position: PreviewModel.pointerLineY
        accent: root.accent
        visible: PreviewModel.hasPointerLine
    }
}
