import QtQuick
import Mosslantern.Common
import Mosslantern.Generator

/// The slide content, and the sizes of its texts.
InspectorCard {
    id: root

    required property GeneratorView panel
    readonly property SlideshowGenerator generator: panel.generator
    readonly property bool isEmpty: generator.textInput === ""

    title: qsTr("Content Template")

    Column {
        width: parent.width
        spacing: 16

        Item {
            width: parent.width
            height: 22

            SettingLabel {
                anchors.verticalCenter: parent.verticalCenter
                symbol: "text.quote"
                text: qsTr("Slide Content (JSON)")
                weight: Font.DemiBold
            }
            Badge {
                objectName: "contentBadge"
                anchors.verticalCenter: parent.verticalCenter
                anchors.right: parent.right
                visible: !root.isEmpty
                symbol: root.panel.isValid ? "checkmark.circle.fill" : "exclamationmark.triangle.fill"
                text: root.panel.isValid ? qsTr("Valid") : qsTr("Invalid")
                tint: root.panel.isValid ? Theme.green : Theme.orange
            }
        }
        ContentEditor {
            objectName: "contentEditor"
            width: parent.width
            height: 250
            panel: root.panel
        }
        Item {
            width: parent.width
            height: 24

            Row {
                spacing: 6

                SmallButton {
                    objectName: "openLibrary"
                    text: qsTr("Library")
                    symbol: "books.vertical"
                    onClicked: root.panel.showingLibrary = true
                }
                SmallButton {
                    objectName: "insertExample"
                    text: qsTr("Example")
                    onClicked: root.panel.insertExample()
                }
            }
            Row {
                anchors.right: parent.right
                spacing: 6

                SmallButton {
                    objectName: "prettify"
                    enabled: !root.isEmpty
                    symbol: "text.alignleft"
                    label: qsTr("Prettify JSON")
                    onClicked: root.panel.prettify()
                }
                SmallButton {
                    objectName: "fixNewlines"
                    enabled: !root.isEmpty
                    symbol: "wand.and.stars"
                    label: qsTr("Fix Newlines")
                    onClicked: root.panel.fixNewlines()
                }
                Rectangle {
                    anchors.verticalCenter: parent.verticalCenter
                    width: 1
                    height: 16
                    color: Theme.separator
                }
                SmallButton {
                    objectName: "clearContent"
                    enabled: !root.isEmpty
                    isDestructive: true
                    symbol: "trash"
                    label: qsTr("Clear Content")
                    onClicked: root.panel.clearContent()
                }
            }
        }
        Rectangle {
            width: parent.width
            height: 1
            color: Theme.separator
        }
        Column {
            width: parent.width
            spacing: 12

            SizeControl {
                objectName: "mainTextSize"
                panel: root.panel
                symbol: "textformat.size"
                text: qsTr("Main Text Size")
                value: root.generator.templateTextScale
                onPicked: (value) => root.generator.templateTextScale = value
            }
            SizeControl {
                objectName: "subtitleSize"
                panel: root.panel
                symbol: "textformat.size.smaller"
                text: qsTr("Subtitle Size")
                value: root.generator.templateSubtitleScale
                onPicked: (value) => root.generator.templateSubtitleScale = value
            }
        }
    }
}
