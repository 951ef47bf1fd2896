import QtQuick

/// The keyboard of a list or grid of items. Its owner hands it each key and does what it asks for.
QtObject {
    /// Whether items stand side by side, so that the keys to the left and right move, too.
    property bool hasColumns: false
    /// Whether more can be done with an item than to make it the current one.
    property bool acts: true

    /// Another item is to be current: so many items, rows or pages further on, or the first or last one.
    signal movedBy(items: int)
    signal movedByRows(rows: int)
    signal movedByPages(pages: int)
    signal movedToEnd(isLast: bool)
    /// The current item is to be opened or removed, or is to show its menu; or the space bar was pressed on it.
    signal opened
    signal spacePressed
    signal removalRequested
    signal menuRequested

    /// Whether the key meant something.
    function take(event: KeyEvent): bool {
        const modifiers = event.modifiers & ~Qt.KeypadModifier
        const key = event.key === Qt.Key_F10 && modifiers === Qt.ShiftModifier ? Qt.Key_Menu
            : modifiers === Qt.NoModifier ? event.key : Qt.Key_unknown
        switch (key) {
        case Qt.Key_Left:
        case Qt.Key_Right:
            if (hasColumns)
                movedBy(key === Qt.Key_Left ? -1 : 1)
            return hasColumns
        case Qt.Key_Up:
        case Qt.Key_Down:
            movedByRows(key === Qt.Key_Up ? -1 : 1)
            return true
        case Qt.Key_PageUp:
        case Qt.Key_PageDown:
            movedByPages(key === Qt.Key_PageUp ? -1 : 1)
            return true
        case Qt.Key_Home:
        case Qt.Key_End:
            movedToEnd(key === Qt.Key_End)
            return true
        }
        return acts && act(key)
    }

    function act(key: int): bool {
        switch (key) {
        case Qt.Key_Return:
        case Qt.Key_Enter:
            opened()
            return true
        case Qt.Key_Space:
            spacePressed()
            return true
        case Qt.Key_Delete:
        case Qt.Key_Backspace:
            removalRequested()
            return true
        case Qt.Key_Menu:
            menuRequested()
            return true
        }
        return false
    }
}
