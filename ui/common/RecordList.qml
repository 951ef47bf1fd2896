import QtQuick
import Mosslantern.Common

/// A list of which one row can be selected, by pointer and keyboard. Its delegates are RecordRows.
KeyList {
    id: root

    required property ListSelection selection
    required property bool hasSelection
    /// Whether the selected row can be removed, by the Delete key and by the command of that name.
    readonly property bool canRemove: hasSelection

    /// The selected row is to be removed.
    signal removalRequested
    /// The Return key on the selected row.
    signal activated
    /// The key for menus on the selected row.
    signal menuRequested(row: RecordRow)

    function moveBy(rows: int) {
        selection.moveBy(rows)
        positionViewAtIndex(selection.row(), ListView.Contain)
    }

    /// Asks for the selected row to be removed; if it is not in view, only shows it.
    function removeCurrent() {
        const before = contentY
        positionViewAtIndex(selection.row(), ListView.Contain)
        if (contentY === before)
            removalRequested()
    }

    topMargin: 8
    bottomMargin: 8
    focus: true
    reuseItems: true
    currentIndex: -1
    marksItself: !hasSelection
    onMoved: (rows) => moveBy(rows)
    Keys.onPressed: (event) => {
        switch (event.key) {
        case Qt.Key_Space:
            if (event.modifiers !== Qt.ControlModifier)
                return
            selection.letGo()
            break
        case Qt.Key_Delete:
        case Qt.Key_Backspace:
            if (canRemove)
                removeCurrent()
            break
        case Qt.Key_Return:
        case Qt.Key_Enter:
            if (hasSelection)
                activated()
            break
        case Qt.Key_F10:
            if (event.modifiers !== Qt.ShiftModifier)
                return
            // falls through
        case Qt.Key_Menu:
            if (hasSelection)
                menuRequested(itemAtIndex(selection.row()) as RecordRow)
            break
        default:
            return
        }
        event.accepted = true
    }
}
