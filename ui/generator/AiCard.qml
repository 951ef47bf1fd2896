import QtQuick
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
                SymbolButton {
                    id: info
                    objectName: "apiKeyInfo"
                    implicitWidth: 20
                    implicitHeight: 20
                    symbol: "info.circle"
                    symbolSize: Theme.caption + 3
                    symbolColor: hovered ? Theme.primary : Theme.secondary
                    hasGround: false
                    hasToolTip: !popover.visible
                    text: qsTr("Why do I need an API Key?")
                    onClicked: root.panel.showingApiKeyInfo = true

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
