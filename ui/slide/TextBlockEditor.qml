import QtQuick
import Mosslantern.Slide

/// The editor of a text block, as large as the block's frame.
MacEditorTextView {
    id: root

    required property DraggableTextView block

    text: block.text
    font: block.editorFont
    textColor: "transparent"
    alignment: Text.AlignHCenter
    insertionPointColor: block.textColor
    isFocused: block.isFocused
    clickLocation: block.clickLocation
    verticalPadding: 2
    lineSpacing: 3
    onEditingChanged: (text) => block.type(text)
    onComposed: (text, isComposing) => isComposing ? block.compose(text) : block.endComposing()
    onDynamicHeightChanged: block.editorHeight = dynamicHeight
    onCommit: block.isFocused = false
}
