pragma ComponentBehavior: Bound

import QtQuick
import Mosslantern.Common
import Mosslantern.Slide

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

    readonly property real firstTop: verticalPadding - lineSpacing / 2

    /// The place of a caret at `position`, where the editor has `rectangle`: as high as its line.
    function caretPlace(position: int, rectangle: rect, heldPosition: int): rect {
        const line = coordinator.line(position)
        const left = rectangle.x + coordinator.caretAside(position, heldPosition)
        return Qt.rect(left / coordinator.factor, firstTop + line.y, 0, line.height)
    }

    /// Puts the caret where a click is nearest to it, in units of the editor.
    function putCaret(at: point) {
        const position = edit.positionAt(at.x, at.y)
        edit.isHolding = true
        edit.cursorPosition = coordinator.moveNear(position, at.x - edit.positionToRectangle(position).x)
        edit.isHolding = false
    }

    /// One rectangle for each line of the selection; several where letters run the other way.
    function selectionRectangles(start: int, end: int): list<rect> {
        const left = edit.positionToRectangle(start).x / coordinator.factor
        // While a text is replaced, one of the two is still of the old one.
        return coordinator.selection(start, Math.min(end, edit.length)).map(part =>
            Qt.rect(left + part.x, firstTop + part.y, part.width, part.height))
    }

    /// What Left and Right do in a line with letters that run the other way; false: in this line the editor knows.
    function stepAside(toRight: bool, selects: bool): bool {
        const place = coordinator.moveBeside(edit.cursorPosition, toRight)
        if (place < 0)
            return false
        edit.isHolding = true
        if (selects)
            edit.moveCursorSelection(place)
        else
            edit.cursorPosition = place
        edit.isHolding = false
        return true
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
        property bool isHolding: false

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
            if (!isHolding)
                coordinator.releaseCaret()
            const place = coordinator.caretPosition(lastPosition, cursorPosition)
            if (place === cursorPosition)
                lastPosition = place
            else if (selectionStart === selectionEnd)
                cursorPosition = place
            else
                moveCursorSelection(place)
        }
        Keys.onPressed: (event) => {
            const selects = (event.modifiers & Qt.ShiftModifier) !== 0
            event.accepted = true
            if (event.key === Qt.Key_Escape)
                return
            if (event.matches(StandardKey.Undo))
                return coordinator.undo()
            if (event.matches(StandardKey.Redo))
                return coordinator.redo()
            event.accepted = false
            if (selectionStart !== selectionEnd && !selects || event.modifiers & ~(Qt.ShiftModifier | Qt.KeypadModifier))
                return
            if (event.key === Qt.Key_Left || event.key === Qt.Key_Right) {
                event.accepted = root.stepAside(event.key === Qt.Key_Right, selects)
                return
            }
            const position = cursorPosition
            const start = event.key === Qt.Key_Backspace ? coordinator.startOfEmojiBefore(position) : position
            const end = event.key === Qt.Key_Delete ? coordinator.endOfEmojiAfter(position) : position
            if (start < end && selectionStart === selectionEnd) {
                remove(start, end)
                event.accepted = true
            }
        }

        PointHandler {
            id: pointer

            property point pressed

            onActiveChanged: if (active) {
                pressed = point.pressPosition
                caretLater.start()
            }
        }
    }
    Timer {
        id: caretLater // when the editor has put the caret there
        interval: 0
        onTriggered: if (edit.selectionStart === edit.selectionEnd) root.putCaret(pointer.pressed)
    }

    PasteLimit {
        target: edit
        limit: 10000
    }
    Repeater {
        model: root.selectionRectangles(edit.selectionStart, edit.selectionEnd)

        Rectangle {
            required property rect modelData

            objectName: "selected"
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
        readonly property rect bar: coordinator.caretBar(root.caretPlace(edit.cursorPosition, edit.cursorRectangle, coordinator.heldPosition))

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
