import QtQuick
import QtQuick.Templates as T
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

    Flickable {
        id: flickable
        objectName: "generatorPanel"

        /// Scrolls to what the Tab key has reached.
        function revealFocus() {
            let shown = root.Window.activeFocusItem
            let parent = shown
            while (parent && parent !== column) {
                if (parent instanceof Flickable)
                    shown = parent
                parent = parent.parent
            }
            if (!parent || !InputMode.usesKeyboard)
                return
            const top = shown.mapToItem(column, 0, 0).y + column.y
            const bottom = top + Math.min(shown.height, height - 2 * Theme.padding)
            if (top - Theme.padding < contentY)
                contentY = Math.max(0, top - Theme.padding)
            else if (bottom + Theme.padding > contentY + height)
                contentY = Math.min(contentHeight - height, bottom + Theme.padding - height)
        }

        anchors.fill: parent
        contentHeight: column.height + 2 * Theme.padding
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        pixelAligned: true

        T.ScrollBar.vertical: ScrollIndicatorBar {}

        Column {
            id: column
            x: Theme.padding
            y: Theme.padding
            width: parent.width - 2 * Theme.padding
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
    }
    Connections {
        target: root.Window.window
        function onActiveFocusItemChanged() {
            flickable.revealFocus()
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
