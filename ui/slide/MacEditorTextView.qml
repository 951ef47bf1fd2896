import QtQuick
import Mosslantern.Common
import Mosslantern.Slide

/// A text editor laid over a text block: the block draws the text, the editor the caret and the selection.
Item {
    id: root

    required property string text
    required property font font
    required property color textColor
    required property int alignment
    required property color insertionPointColor
    required property bool isFocused
    /// A point, or undefined.
    required property var clickLocation
    required property real verticalPadding
    required property real lineSpacing
    /// What the text needs, in points.
    readonly property real dynamicHeight: view.coordinator.neededHeight(view.textHeight)

    /// The user has changed the text into this one.
    signal editingChanged(text: string)
    /// The keyboard has gone elsewhere: editing has ended.
    signal commit
    /// The text with what an input method is composing in it; empty when it composes nothing.
    signal composed(text: string, isComposing: bool)

    function takeText() {
        if (view.coordinator.text() === PlainText.withLineFeeds(text))
            return
        const edit = view.edit
        const start = edit.selectionStart
        const end = edit.selectionEnd
        const caret = edit.cursorPosition
        view.coordinator.replaceText(text)
        const anchor = caret === start ? end : start
        edit.select(Math.min(anchor, edit.length), Math.min(caret, edit.length))
    }

    function focusText() {
        const edit = view.edit
        if (!isFocused || !Window.window || edit.activeFocus)
            return
        edit.forceActiveFocus(Qt.OtherFocusReason)
        if (edit.selectionStart !== edit.selectionEnd)
            return
        if (clickLocation !== undefined)
            view.putCaret(edit.mapFromItem(view, clickLocation.x, clickLocation.y))
        else if (edit.cursorPosition === 0)
            edit.cursorPosition = edit.length
    }

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
        textColor: root.textColor
        insertionPointColor: root.insertionPointColor
        alignment: root.alignment
        sideInset: 8
        verticalPadding: root.verticalPadding
        lineSpacing: root.lineSpacing
    }
    Connections {
        target: view.edit

        function onTextChanged() {
            const text = view.coordinator.text()
            if (text !== PlainText.withLineFeeds(root.text))
                root.editingChanged(text)
        }
        function onPreeditTextChanged() {
            const composing = view.edit.preeditText
            const caret = view.edit.cursorPosition
            const text = view.coordinator.text()
            root.composed(composing !== "" ? text.slice(0, caret) + composing + text.slice(caret) : "", composing !== "")
        }
        function onActiveFocusChanged() {
            // The keyboard comes back when the window is active again.
            if (!view.edit.activeFocus && view.Window.active)
                root.commit()
        }
    }
}
