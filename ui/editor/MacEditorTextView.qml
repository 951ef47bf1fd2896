import QtQuick
import Mosslantern.Editor

/// A text editor laid over a text block: the block draws the text, the editor the caret and the selection.
Item {
    id: root

    required property string text
    required property font font
    property int alignment: Text.AlignHCenter
    required property color insertionPointColor
    required property bool isFocused
    /// A point, or undefined.
    required property var clickLocation
    property real verticalPadding: 2
    property real lineSpacing: 3
    readonly property alias textView: view

    /// The user has changed the text.
    signal textEdited(text: string)
    /// The text with what an input method is composing in it; empty when it composes nothing.
    signal composed(text: string, isComposing: bool)
    signal heightNeeded(height: real)
    signal editingEnded

    function takeText() {
        const edit = view.edit
        if (edit.text !== view.coordinator.editorText(text)) {
            const start = edit.selectionStart
            const end = edit.selectionEnd
            const caret = edit.cursorPosition
            isUpdating = true
            view.coordinator.replaceText(text)
            isUpdating = false
            const anchor = caret === start ? end : start
            edit.select(Math.min(anchor, edit.length), Math.min(caret, edit.length))
        }
        heightNeeded(view.coordinator.neededHeight(view.textHeight))
    }

    function focusText() {
        const edit = view.edit
        if (!isFocused || !Window.window || edit.activeFocus)
            return
        edit.forceActiveFocus(Qt.OtherFocusReason)
        if (edit.selectionStart !== edit.selectionEnd)
            return
        if (clickLocation !== undefined)
            edit.cursorPosition = view.positionAt(clickLocation)
        else if (edit.cursorPosition === 0)
            edit.cursorPosition = edit.length
    }

    property bool isUpdating: false

    onTextChanged: takeText()
    Component.onCompleted: {
        takeText()
        focusLater.start()
    }
    onIsFocusedChanged: focusLater.start()

    Timer {
        id: focusLater
        interval: 0
        onTriggered: root.focusText()
    }
    CustomNSTextView {
        id: view
        anchors.fill: parent
        font: root.font
        insertionPointColor: root.insertionPointColor
        alignment: root.alignment
        sideInset: 8
        verticalPadding: root.verticalPadding
        lineSpacing: root.lineSpacing
    }
    Connections {
        target: view.edit

        function onTextChanged() {
            if (root.isUpdating)
                return
            root.textEdited(view.edit.text)
            root.heightNeeded(view.coordinator.neededHeight(view.textHeight))
        }
        function onPreeditTextChanged() {
            const edit = view.edit
            const composing = edit.preeditText !== ""
            root.composed(composing ? edit.text.slice(0, edit.cursorPosition) + edit.preeditText
                                      + edit.text.slice(edit.cursorPosition) : "", composing)
        }
        function onActiveFocusChanged() {
            // The keyboard comes back when the window is active again.
            if (!view.edit.activeFocus && view.Window.active)
                root.editingEnded()
        }
    }
}
