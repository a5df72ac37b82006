// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Zumeta

/// The picture with what lies over it. Where the step lacks its video, a card takes the picture's place.
Rectangle {
    id: root

    required property point sceneOrigin // of this item in the window
    readonly property Accent accent: Theme.accentOf(WindowModel.step)

    objectName: "previewArea"
    color: Theme.preview
    clip: true

    Loader {
        anchors { fill: parent; bottomMargin: PreviewModel.roomBelow }
        active: PreviewModel.hasSurface && !FilesModel.shouldShowCentralDropInstruction

        sourceComponent: Item {
            CompositeVideoView {
                id: surface

                objectName: "previewSurface"
                anchors.fill: parent
                model: PreviewModel
                sceneOrigin: root.sceneOrigin
                activeFocusOnTab: PreviewModel.isPickOpen
                Accessible.role: Accessible.Graphic
                Accessible.name: Words.of("Video Preview")
                Accessible.focusable: PreviewModel.isPickOpen
            }
            Item {
                x: surface.frame.x
                y: surface.frame.y
                width: surface.frame.width
                height: surface.frame.height
                clip: true

                OnboardingAnchor { anchors.fill: parent; target: OnboardingAnchor.Preview }
                Loader {
                    anchors.fill: parent
                    active: PreviewModel.hasSkeletonOverlay

                    sourceComponent: SkeletonOverlayView { objectName: "skeletonOverlay" }
                }
                WaterlineIndicator {
                    width: parent.width
                    position: PreviewModel.waterlineIndicatorY
                    isShown: PreviewModel.waterlineIndicatorOpacity > 0
                    visible: PreviewModel.hasWaterlineIndicator
                }
                VerticalGuideLine {
                    anchors.fill: parent
                    accent: root.accent
                    visible: PreviewModel.hasVerticalGuideLine
                }
                AlignmentLinesOverlay {
                    anchors.fill: parent
                    accent: root.accent
                }
                TapGuideOverlay {
                    anchors { horizontalCenter: parent.horizontalCenter; bottom: parent.bottom; bottomMargin: 24 }
                    accent: root.accent
                    visible: PreviewModel.hasTapGuide
                }
                Rectangle {
                    objectName: "previewFocusRing"
                    anchors.fill: parent
                    color: "transparent"
                    border { width: Theme.strokeFocus; color: root.accent.base }
                    visible: surface.activeFocus && KeyboardFocus.isShown
                }
            }
        }
    }
    DropTarget {
        id: dropTarget

        objectName: "dropTarget"
        anchors.fill: parent
        files: FilesModel
        enabled: ModalState.acceptsDrops && !PreviewModel.hasMissingMediaView
        visible: FilesModel.shouldShowCentralDropInstruction

        DropInstructionCard {
            anchors.centerIn: parent
            width: Math.min(460, parent.width - 48)
            artwork: WindowModel.step === 2 ? "drop-below" : "drop-above"
            title: Words.of(FilesModel.centralDropInstructionText)
            description: Words.of(FilesModel.centralDropInstructionDescription)
            buttonTitle: Words.of(FilesModel.centralDropButtonTitle)
            hint: Words.of("Multiple Clips Hint")
            accent: root.accent
            isHighlighted: FilesModel.isDropZoneHighlighted
            isDragOver: dropTarget.isDragOver
            onChosen: FilesModel.chooseVideos()

            OnboardingAnchor { anchors.fill: parent; target: OnboardingAnchor.AboveDropArea }
        }
    }
    MissingMediaView {
        anchors.fill: parent
        visible: PreviewModel.hasMissingMediaView
    }
}
