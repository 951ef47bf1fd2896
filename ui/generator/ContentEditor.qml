import QtQuick
import Mosslantern.Common
import Mosslantern.Generator

/// The editor of the slide content.
TextEditor {
    id: root

    required property GeneratorView panel

    label: qsTr("Slide Content (JSON)")
    placeholder: panel.placeholder
    color: Theme.controlBackground
    radius: Theme.tileRadius
    padding: 14
    pasteLimit: 200000
    font.family: Theme.monospaced

    DocumentText {
        textDocument: root.textDocument
        text: root.panel.generator.textInput
        onTextEdited: (text) => root.panel.generator.textInput = text
        onReplaced: (start) => {
            if (!root.activeFocus)
                root.cursorPosition = start
        }
    }
}
