import QtQuick
import QtQuick.Templates as T
import Mosslantern.Common

/// One template: its name, its age and its text.
Flickable {
    id: root

    required property ContentTemplate shown
    property date now: new Date()

    contentHeight: column.height + 2 * 24
    clip: true
    boundsBehavior: Flickable.StopAtBounds
    onShownChanged: {
        contentY = 0
        now = new Date()
    }

    T.ScrollBar.vertical: ScrollIndicatorBar {}

    Timer {
        interval: 1000
        repeat: true
        running: root.visible
        onTriggered: root.now = new Date()
    }

    Column {
        id: column
        x: 24
        y: 24
        width: root.width - 2 * 24
        spacing: 16

        Column {
            width: parent.width
            spacing: 4

            ElidedText {
                objectName: "templateTitle"
                width: parent.width
                text: root.shown ? root.shown.name : ""
                font.pixelSize: Theme.title2
                font.weight: Font.Bold
                Accessible.role: Accessible.Heading
            }
            ElidedText {
                objectName: "templateAge"
                width: parent.width
                text: root.shown ? Dates.distance(root.shown.createdAt, root.now) : ""
                color: Theme.secondary
            }
        }
        Rectangle {
            width: parent.width
            height: 1
            color: Theme.separator
        }
        Column {
            width: parent.width
            spacing: 8

            ElidedText {
                text: qsTr("Content")
                color: Theme.secondary
                font.pixelSize: Theme.headline
                font.weight: Font.DemiBold
            }
            Rectangle {
                width: parent.width
                height: text.height
                color: Theme.textBackground
                border.color: text.activeFocus ? Theme.blue : Theme.separator
                border.width: text.activeFocus ? Theme.focusWidth : 1
                radius: Theme.thumbnailRadius

                TextEdit {
                    id: text
                    objectName: "templateContent"
                    width: parent.width
                    padding: Theme.padding
                    text: root.shown ? root.shown.content : ""
                    textFormat: TextEdit.PlainText
                    wrapMode: TextEdit.Wrap
                    readOnly: true
                    selectByMouse: true
                    activeFocusOnTab: true
                    color: Theme.primary
                    selectionColor: Theme.accent
                    selectedTextColor: Theme.accentText
                    font.family: Theme.monospaced
                    font.pixelSize: Theme.body
                    Accessible.role: Accessible.EditableText
                    Accessible.readOnly: true
                    Accessible.name: qsTr("Content")

                    LineHighlighter {
                        textDocument: text.textDocument
                        font: text.font
                    }
                }
            }
        }
    }
}
