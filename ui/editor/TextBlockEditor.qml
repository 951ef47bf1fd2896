import QtQuick
import Mosslantern.Editor

/// The editor of a text block, as large as the block's frame.
MacEditorTextView {
    id: root

    required property DraggableTextView block

    text: block.text
    font: block.editorFont
    insertionPointColor: block.textColor
    isFocused: block.isFocused
    clickLocation: block.clickLocation
    onTextEdited: (text) => block.type(text)
    onComposed: (text, isComposing) => isComposing ? block.compose(text) : block.endComposing()
    onHeightNeeded: (height) => block.editorHeight = height
    onEditingEnded: block.isFocused = false
}
