import QtQuick
import QtQuick.Templates as T
import Mosslantern.Common
import Mosslantern.Library

/// A list of which one row can be selected, by pointer and keyboard. Its delegates are RecordRows.
ListView {
    id: root

    /// What it holds, for those who do not see it.
    required property string label
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
    clip: true
    focus: true
    activeFocusOnTab: true
    reuseItems: true
    boundsBehavior: Flickable.StopAtBounds
    keyNavigationEnabled: false
    currentIndex: -1
    Accessible.role: Accessible.List
    Accessible.name: label

    Keys.onPressed: (event) => {
        const page = count > 0 ? Math.max(1, Math.floor(height * count / contentHeight) - 1) : 0
        switch (event.key) {
        case Qt.Key_Up:
            moveBy(-1)
            break
        case Qt.Key_Down:
            moveBy(1)
            break
        case Qt.Key_Home:
            moveBy(-count)
            break
        case Qt.Key_End:
            moveBy(count)
            break
        case Qt.Key_PageUp:
            moveBy(-page)
            break
        case Qt.Key_PageDown:
            moveBy(page)
            break
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

    T.ScrollBar.vertical: ScrollIndicatorBar {}

    FocusRing {
        parent: root
        distance: -3
        visible: root.activeFocus && !root.hasSelection && InputMode.usesKeyboard
    }
}
