// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T
import Zumeta

/// The terms under which the program is passed on, to be read by wheel, touch and keys.
Rectangle {
    id: root

    activeFocusOnTab: true
    color: Theme.field
    radius: Theme.radiusField
    border.width: Theme.strokeEdge
    border.color: Theme.stroke2
    Accessible.role: Accessible.Document
    Accessible.name: Words.of("Licences")
    Accessible.focusable: true
    Keys.onPressed: event => event.accepted = keys.pressKey(event.key)

    Flickable {
        id: view

        objectName: "licenceView"
        anchors { fill: parent; margins: 1 }
        contentHeight: text.height
        boundsBehavior: Flickable.StopAtBounds
        clip: true
        T.ScrollBar.vertical: T.ScrollBar {
            width: 12
            padding: 3
            minimumSize: 0.06
            contentItem: Rectangle {
                radius: 3
                color: Theme.surface3
            }
        }

        Column {
            id: text

            x: 14
            width: view.width - 2 * x
            topPadding: 12
            bottomPadding: 14
            spacing: 10

            Repeater {
                model: AboutModel

                Column {
                    id: block

                    required property string title
                    required property string words

                    width: parent.width
                    spacing: 2

                    Text {
                        width: parent.width
                        text: block.title
                        textFormat: Text.PlainText
                        color: Theme.text1
                        font: Typography.captionStrong
                        wrapMode: Text.Wrap
                        visible: block.title
                    }
                    Text {
                        width: parent.width
                        text: block.words
                        textFormat: Text.PlainText
                        color: Theme.text2
                        font: Typography.caption
                        wrapMode: Text.Wrap
                        visible: block.words
                    }
                }
            }
        }
    }
    ReadingScroller {
        id: keys

        anchors.fill: view
        content: view.contentItem
        onScrollWanted: top => view.contentY = top
    }
    FocusRing {
        control: root
        controlRadius: root.radius
        border.color: Theme.accentOf(WindowModel.step).base
    }
}
