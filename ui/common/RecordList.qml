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
    acts: true
    reuseItems: true
    currentIndex: -1
    marksItself: !hasSelection
    onMoved: (rows) => moveBy(rows)
    Keys.onSpacePressed: (event) => {
        event.accepted = event.modifiers === Qt.ControlModifier
        if (event.accepted)
            selection.letGo()
    }

    Connections {
        target: root.keys
        enabled: root.hasSelection

        function onOpened() {
            root.activated()
        }
        function onRemovalRequested() {
            if (root.canRemove)
                root.removeCurrent()
        }
        function onMenuRequested() {
            root.menuRequested(root.itemAtIndex(root.selection.row()) as RecordRow)
        }
    }
}
