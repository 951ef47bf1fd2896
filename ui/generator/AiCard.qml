import QtQuick
import QtQuick.Templates as T
import Mosslantern.Common
import Mosslantern.Generator

/// Whether the AI service writes the texts, and what it needs for that.
InspectorCard {
    id: root

    required property GeneratorView panel
    readonly property SlideshowGenerator generator: panel.generator

    title: qsTr("AI Generation")

    Column {
        width: parent.width
        spacing: 12

        SwitchView {
            objectName: "aiSwitch"
            width: parent.width
            text: qsTr("Enable AI Generation")
            isOn: root.generator.isAiMode
            onPicked: (isOn) => root.generator.isAiMode = isOn
        }
        CardDivider {
            visible: root.generator.isAiMode
        }
        Column {
            visible: root.generator.isAiMode
            width: parent.width
            spacing: 4

            Row {
                spacing: 4

                ElidedText {
                    anchors.verticalCenter: parent.verticalCenter
                    text: qsTr("OpenAI API Key")
                    color: Theme.secondary
                    font.pixelSize: Theme.caption
                }
                T.Button {
                    id: info
                    objectName: "apiKeyInfo"
                    implicitWidth: 20
                    implicitHeight: 20
                    focusPolicy: Qt.StrongFocus
                    text: qsTr("Why do I need an API Key?")
                    Accessible.role: Accessible.Button
                    Accessible.name: text
                    onClicked: root.panel.showingApiKeyInfo = true
                    Keys.onReturnPressed: clicked()
                    Keys.onEnterPressed: clicked()

                    contentItem: Item {
                        Symbol {
                            anchors.centerIn: parent
                            name: "info.circle"
                            size: Theme.caption + 3
                            color: info.hovered ? Theme.primary : Theme.secondary
                        }
                    }
                    background: Item {
                        FocusRing {
                            distance: 0
                            visible: info.activeFocus && InputMode.usesKeyboard
                        }
                    }

                    ToolTipView {
                        text: info.text
                        visible: info.hovered && !popover.visible
                    }
                    ApiKeyInfo {
                        id: popover
                        visible: root.panel.showingApiKeyInfo
                        onClosed: root.panel.showingApiKeyInfo = false
                    }
                }
            }
            SecretField {
                objectName: "apiKey"
                width: parent.width
                label: qsTr("OpenAI API Key")
                placeholderText: qsTr("Enter API Key")
                text: root.generator.openAiApiKey
                onTextEdited: root.generator.openAiApiKey = text
            }
        }
        Column {
            visible: root.generator.isAiMode
            width: parent.width
            spacing: 4

            ElidedText {
                text: qsTr("Custom Prompt")
                color: Theme.secondary
                font.pixelSize: Theme.caption
            }
            TextEditor {
                objectName: "customPrompt"
                width: parent.width
                height: 60
                label: qsTr("Custom Prompt")
                radius: Theme.smallRadius
                padding: 4
                borderColor: Theme.faintOutline
                font.pixelSize: Theme.caption
                text: root.generator.customPrompt
                onTextEdited: (text) => root.generator.customPrompt = text
            }
        }
        Column {
            visible: root.generator.isAiMode
            width: parent.width
            spacing: 4

            ElidedText {
                text: qsTr("Batch Name")
                color: Theme.secondary
                font.pixelSize: Theme.caption
            }
            TextInputField {
                objectName: "batchName"
                width: parent.width
                label: qsTr("Batch Name")
                placeholder: qsTr("e.g. Motivation Quotes")
                text: root.generator.batchName
                onTextEdited: (text) => root.generator.batchName = text
            }
        }
    }
}
