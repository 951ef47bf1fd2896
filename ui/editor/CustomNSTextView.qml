pragma ComponentBehavior: Bound

import QtQuick
import Mosslantern.Common
import Mosslantern.Editor

/// Several lines of text to type, with a thick bar for a caret. Lengths are points; the text is laid out larger and
/// scaled down.
Item {
    id: root

    required property font font
    required property color textColor
    required property color insertionPointColor
    required property int alignment
    required property real sideInset
    required property real verticalPadding
    required property real lineSpacing
    property alias edit: edit
    property alias coordinator: coordinator
    readonly property real textHeight: edit.contentHeight / coordinator.factor

    /// The place of a caret at `position`, where the editor has `rectangle`: as high as its line.
    function caretPlace(position: int, rectangle: rect): rect {
        const line = coordinator.line(position)
        return Qt.rect(rectangle.x / coordinator.factor, verticalPadding + line.y - lineSpacing / 2, 0, line.height)
    }

    function positionAt(point: point): int {
        return edit.positionAt((point.x - edit.x) * coordinator.factor, (point.y - edit.y) * coordinator.factor)
    }

    /// One rectangle for each line of the selection.
    function selectionRectangles(start: int, selectionEnd: int): list<rect> {
        const rectangles = []
        // While a text is replaced, one of the two is still of the old one.
        const end = Math.min(selectionEnd, edit.length)
        let from = start
        while (from < end) {
            const lineBreak = edit.text.indexOf("\n", from)
            const to = lineBreak < 0 || lineBreak > end ? end : lineBreak
            const left = caretPlace(from, edit.positionToRectangle(from))
            const right = caretPlace(to, edit.positionToRectangle(to))
            rectangles.push(Qt.rect(Math.min(left.x, right.x), left.y, Math.max(2, Math.abs(right.x - left.x)), left.height))
            from = to + 1
        }
        return rectangles
    }

    Coordinator {
        id: coordinator
        textDocument: edit.textDocument
        font: root.font
        lineSpacing: root.lineSpacing
        // A transparent colour alone would leave the emoji to be seen.
        drawsText: root.textColor.a > 0
    }

    TextEdit {
        id: edit

        property int lastPosition: 0

        objectName: "textEdit"
        y: coordinator.baselineShift
        width: root.width * coordinator.factor
        height: root.height * coordinator.factor
        scale: 1 / coordinator.factor
        transformOrigin: Item.TopLeft
        color: root.textColor
        leftPadding: root.sideInset * coordinator.factor
        rightPadding: leftPadding
        topPadding: root.verticalPadding * coordinator.factor
        bottomPadding: topPadding
        font: root.font
        tabStopDistance: coordinator.tabStopDistance
        renderType: TextEdit.QtRendering
        textFormat: TextEdit.PlainText
        wrapMode: TextEdit.NoWrap
        horizontalAlignment: root.alignment
        selectByMouse: true
        persistentSelection: true
        cursorDelegate: Item {}
        onCursorPositionChanged: {
            blink.restart()
            caret.isOn = true
            const place = coordinator.caretPosition(lastPosition, cursorPosition)
            if (place === cursorPosition)
                lastPosition = place
            else if (selectionStart === selectionEnd)
                cursorPosition = place
            else
                moveCursorSelection(place)
        }
        Keys.onPressed: (event) => {
            if (event.key === Qt.Key_Escape)
                event.accepted = true
            else if (selectionStart !== selectionEnd || event.modifiers & ~(Qt.ShiftModifier | Qt.KeypadModifier))
                return
            const position = cursorPosition
            const start = event.key === Qt.Key_Backspace ? coordinator.startOfEmojiBefore(position) : position
            const end = event.key === Qt.Key_Delete ? coordinator.endOfEmojiAfter(position) : position
            if (start < end) {
                remove(start, end)
                event.accepted = true
            }
        }
    }

    PasteLimit {
        target: edit
        limit: 10000
    }
    Repeater {
        model: root.selectionRectangles(edit.selectionStart, edit.selectionEnd)

        Rectangle {
            required property rect modelData

            x: modelData.x
            y: modelData.y
            width: modelData.width
            height: modelData.height
            color: Theme.selectedText
        }
    }
    Rectangle {
        id: caret
        objectName: "caret"

        property bool isOn: true
        readonly property rect bar: coordinator.caretBar(root.caretPlace(edit.cursorPosition, edit.cursorRectangle))

        x: bar.x
        y: bar.y
        width: bar.width
        height: bar.height
        visible: isOn && edit.activeFocus && edit.selectionStart === edit.selectionEnd
        color: root.insertionPointColor
    }
    Timer {
        id: blink
        interval: coordinator.blinkInterval
        repeat: true
        running: edit.activeFocus && interval > 0
        onTriggered: caret.isOn = !caret.isOn
    }
}
