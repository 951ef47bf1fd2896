import QtQuick
import QtQuick.Templates as T
import Mosslantern.Common

/// A lazy grid with as many columns as fit, centred and scrolled downwards. Its delegates are GridCells. The
/// arrow keys move from cell to cell.
GridView {
    id: root

    required property real minimumColumnWidth
    property real maximumColumnWidth: Infinity
    required property real columnSpacing
    required property real rowSpacing
    required property real rowHeight
    property real gridPadding: Theme.padding

    readonly property real available: width - 2 * gridPadding
    readonly property int columns: Math.max(1, Math.floor((available + columnSpacing) / (minimumColumnWidth + columnSpacing)))
    readonly property real columnWidth: Math.min(maximumColumnWidth, (available - (columns - 1) * columnSpacing) / columns)
    /// Where the first column begins; the view itself lays its cells out from its left edge.
    readonly property real firstColumn: gridPadding + (available - columns * columnWidth - (columns - 1) * columnSpacing) / 2
    /// Whether the pointer was used last: then the current cell is not marked.
    property bool usesPointer: false
    readonly property bool marksCurrent: activeFocus && !usesPointer

    function point(index: int) {
        currentIndex = index
        usesPointer = true
        forceActiveFocus(Qt.MouseFocusReason)
    }

    cellWidth: columnWidth + columnSpacing
    cellHeight: rowHeight + rowSpacing
    topMargin: gridPadding
    bottomMargin: gridPadding - rowSpacing
    clip: true
    reuseItems: true
    cacheBuffer: cellHeight
    boundsBehavior: Flickable.StopAtBounds
    keyNavigationEnabled: true
    activeFocusOnTab: true
    currentIndex: 0
    highlightFollowsCurrentItem: true
    highlightMoveDuration: 0

    // A cell that takes the place of a removed one does not get the focus of its own accord.
    Keys.forwardTo: currentItem ? [currentItem] : []
    Keys.onPressed: (event) => {
        usesPointer = false
        event.accepted = false
    }
    Accessible.role: Accessible.List

    T.ScrollBar.vertical: ScrollIndicatorBar {}
}
