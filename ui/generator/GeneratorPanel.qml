import QtQuick
import Mosslantern.Common
import Mosslantern.Generator

/// The controls of the generator, in cards one below the other.
Rectangle {
    id: root

    required property ScreenContext context
    required property GeneratorView panel

    color: Theme.controlBackground
    Accessible.role: Accessible.Pane
    Accessible.name: qsTr("Generator")

    CardColumn {
        objectName: "generatorPanel"
        anchors.fill: parent
        spacing: 16

        AiCard {
            width: parent.width
            panel: root.panel
        }
        SourceCard {
            width: parent.width
            panel: root.panel
        }
        InspectorCard {
            width: parent.width
            title: qsTr("Canvas Size")

            SettingRow {
                symbol: "rectangle.portrait.and.arrow.forward"
                text: qsTr("Aspect Ratio")

                MenuPicker {
                    objectName: "shapePicker"
                    width: 150
                    label: qsTr("Aspect Ratio")
                    model: root.panel.shapeNames
                    currentIndex: root.panel.shape
                    onActivated: (index) => root.panel.shape = index
                }
            }
        }
        ParametersCard {
            width: parent.width
            panel: root.panel
        }
        StyleCard {
            width: parent.width
            panel: root.panel
        }
        ContentCard {
            width: parent.width
            panel: root.panel
        }
        Item {
            width: parent.width
            height: generate.height + 8

            GenerateButton {
                id: generate
                objectName: "generate"
                y: 8
                width: parent.width
                panel: root.panel
            }
        }
    }

    SheetLoader {
        id: library
        onClosed: root.panel.showingLibrary = false
    }
    Connections {
        target: library.item
        ignoreUnknownSignals: true
        function onTextInputChanged() {
            root.panel.generator.textInput = (library.item as ContentLibrarySheet).textInput
        }
    }
    Connections {
        target: root.panel
        function onShowingLibraryChanged() {
            if (root.panel.showingLibrary)
                library.setSource("ContentLibrarySheet.qml",
                                  {"context": root.context, "textInput": root.panel.generator.textInput, "visible": true})
        }
    }
}
