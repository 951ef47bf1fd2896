import QtQuick
import QtQuick.Templates as T
import Mosslantern.Common

/// A lazy grid with as many columns as fit, centred and scrolled downwards. Its delegates are GridCells. The
/// arrow keys, Home, End and the keys for pages move from cell to cell; a ring marks the frame of the current one.
GridView {
    id: root

    /// What it holds, for those who do not see it.
    required property string label
    /// Of the cells' square frames; no column is narrower.
    required property real frameSize
    required property real frameRadius
    property real maximumColumnWidth: Infinity
    required property real columnSpacing
    required property real rowSpacing
    required property real rowHeight
    property real gridPadding: Theme.padding

    /// Whether the current cell can be removed, by the Delete key and by the command of that name.
    property bool canRemove: false

    readonly property real available: width - 2 * gridPadding
    readonly property int columns: Math.max(1, Math.floor((available + columnSpacing) / (frameSize + columnSpacing)))
    readonly property real columnWidth: Math.min(maximumColumnWidth, (available - (columns - 1) * columnSpacing) / columns)
    /// Where the first column begins; the view itself lays its cells out from its left edge.
    readonly property real firstColumn: gridPadding + (available - columns * columnWidth - (columns - 1) * columnSpacing) / 2
    readonly property real firstFrame: firstColumn + (columnWidth - frameSize) / 2
    /// Above the frame in each cell: a cell at the upper edge shows all of its ring.
    readonly property real ringRoom: 6
    readonly property bool marksCurrent: activeFocus && InputMode.usesKeyboard

    /// What they do with the current cell is the cell's.
    readonly property ItemKeys keys: ItemKeys {
        hasColumns: true
        onMovedBy: (cells) => root.moveBy(cells)
        onMovedByRows: (rows) => {
            const next = root.currentIndex + rows * root.columns
            if (next >= 0 && next < root.count)
                root.moveBy(rows * root.columns)
        }
        onMovedByPages: (pages) => root.moveBy(pages * root.columns * Math.max(1, Math.floor(root.height / root.cellHeight)))
        onMovedToEnd: (isLast) => root.moveBy(isLast ? root.count : -root.count)
        onRemovalRequested: {
            if (root.canRemove)
                root.removeCurrent()
        }
    }

    /// The current cell is to be removed.
    signal removalRequested

    /// A pointer chose a cell.
    function point(index: int) {
        currentIndex = index
        forceActiveFocus(Qt.MouseFocusReason)
    }
    function moveBy(cells: int) {
        currentIndex = Math.max(0, Math.min(count - 1, currentIndex + cells))
        revealCurrent()
    }
    /// Scrolls as far as it must to show all of the current cell, and says whether it had to.
    function revealCurrent(): bool {
        const before = contentY
        positionViewAtIndex(currentIndex, GridView.Contain)
        return contentY !== before
    }
    /// Asks for the current cell to be removed; if it is not in view, only shows it.
    function removeCurrent() {
        if (!revealCurrent())
            removalRequested()
    }

    cellWidth: columnWidth + columnSpacing
    cellHeight: rowHeight + rowSpacing
    topMargin: gridPadding - ringRoom
    bottomMargin: gridPadding - rowSpacing + ringRoom
    clip: true
    reuseItems: true
    cacheBuffer: cellHeight
    boundsBehavior: Flickable.StopAtBounds
    keyNavigationEnabled: false
    activeFocusOnTab: true
    currentIndex: 0
    highlightFollowsCurrentItem: true
    highlightMoveDuration: 0

    onActiveFocusChanged: {
        if (marksCurrent)
            revealCurrent()
    }
    Keys.onPressed: (event) => event.accepted = keys.take(event)
    Accessible.role: Accessible.List
    Accessible.name: label

    T.ScrollBar.vertical: ScrollIndicatorBar {}

    Item {
        parent: root.contentItem
        x: root.firstFrame + (root.currentItem ? root.currentItem.x : 0)
        y: root.ringRoom + (root.currentItem ? root.currentItem.y : 0)
        width: root.frameSize
        height: width
        visible: root.marksCurrent && root.currentItem

        FocusRing {
            objectName: "gridRing"
            distance: 3
            radius: root.frameRadius + distance
        }
    }
}
