// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// What is decided before an export. Return exports, Escape leaves, up and down choose the size.
ModalCard {
    id: root

    readonly property Accent accent: Theme.accentOf(WindowModel.step)

    kind: ModalState.Sheet
    cardWidth: 460
    padding: 28
    visible: ExportSheetModel.isShown
    height: 2 * Math.ceil(column.implicitHeight / 2) + 2 * padding // even, so that edges are sharp
    onAboutToShow: exportButton.focus = true
    onClosed: ExportSheetModel.dismiss()

    contentItem: FocusScope {
        objectName: "exportSheet"
        focus: true
        Keys.onEscapePressed: ExportSheetModel.dismiss()
        Keys.onUpPressed: ExportSheetModel.selectNeighbour(-1)
        Keys.onDownPressed: ExportSheetModel.selectNeighbour(1)

        Column {
            id: column

            width: parent.width

            Text {
                width: parent.width
                text: Words.of("Export Settings")
                color: Theme.text1
                font: Typography.sheetTitle
                wrapMode: Text.Wrap
                Accessible.role: Accessible.Heading
                Accessible.name: text
            }
            Item { width: 1; height: 20 }
            Text {
                id: listTitle

                width: parent.width
                text: Words.of("Select Resolution")
                color: Theme.text2
                font: Typography.smallText
                wrapMode: Text.Wrap
            }
            Item { width: 1; height: 10 }
            Column {
                width: parent.width
                spacing: 8
                Accessible.role: Accessible.Grouping
                Accessible.name: listTitle.text

                Repeater {
                    model: ExportSheetModel.sizes

                    ResolutionRow {
                        required property int index
                        required property string modelData

                        objectName: "resolution" + modelData
                        width: column.width
                        size: modelData
                        pixelSize: ExportSheetModel.pixelSizes[index] ?? ""
                        isSelected: ExportSheetModel.selected === index
                        accent: root.accent
                        onClicked: ExportSheetModel.select(index)
                    }
                }
            }
            Item { width: 1; height: 14 }
            Rectangle {
                width: parent.width
                height: 1
                color: Theme.stroke1
            }
            Item { width: 1; height: 18 }
            MarkRow {
                width: parent.width
                accent: root.accent
            }
            Item { width: 1; height: 22 }
            Row {
                width: parent.width
                spacing: 10

                ActionButton {
                    objectName: "exportSheetCancel"
                    width: (parent.width - parent.spacing) / 2
                    implicitHeight: 44
                    title: Words.of("Cancel")
                    isNeutral: true
                    accent: root.accent
                    onClicked: ExportSheetModel.dismiss()
                }
                ActionButton {
                    id: exportButton

                    objectName: "exportSheetExport"
                    width: (parent.width - parent.spacing) / 2
                    implicitHeight: 44
                    icon: "square-and-arrow-up"
                    title: Words.of("Export")
                    isFilled: true
                    accent: root.accent
                    onClicked: ExportSheetModel.exportVideo()
                }
            }
        }
    }
}
