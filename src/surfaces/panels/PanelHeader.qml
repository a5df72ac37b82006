// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Layouts
import Zumeta

/// What concerns the project as a whole. Saving comes first, so that nothing moves when it begins to be offered.
RowLayout {
    id: root

    property Accent accent: Theme.lime

    spacing: 6

    Text {
        Layout.fillWidth: true
        text: "Zumeta"
        color: Theme.text1
        font: Typography.buttonLarge
        elide: Text.ElideRight
    }
    IconButton {
        objectName: "saveButton"
        icon: "save"
        text: Words.of("Save Project")
        accent: root.accent
        visible: StepPanelModel.canSave
        onClicked: StepPanelModel.save()
    }
    IconButton {
        objectName: "openButton"
        icon: "open"
        text: Words.of("Open Project")
        accent: root.accent
        onClicked: StepPanelModel.open()
    }
    IconButton {
        objectName: "cameraButton"
        icon: CameraChoice.selected === 0 ? "camera-action" : "camera-360"
        text: Words.of("Change Camera")
        accent: root.accent
        onClicked: StepPanelModel.changeCamera()
    }
    IconButton {
        objectName: "languageButton"
        icon: "globe"
        text: Words.of("Language")
        accent: root.accent
        isOn: languageMenu.visible
        onClicked: languageMenu.visible ? languageMenu.close() : languageMenu.open()

        LanguageMenu {
            id: languageMenu

            x: parent.width - width
            y: parent.height + 8
            accent: root.accent
        }
    }
}
