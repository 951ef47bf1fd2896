import QtQuick
import QtQuick.Templates as T
import Mosslantern.Common

/// Cards one below the other, in an area that scrolls. What the keyboard comes to is scrolled into view; what is clicked
/// stays under the pointer.
Flickable {
    id: root

    default property alias cards: column.data
    property alias spacing: column.spacing
    readonly property Item focusItem: Window.activeFocusItem

    /// Shows what has the focus, or the area that it scrolls in itself.
    function revealFocus() {
        let shown = focusItem
        let item = focusItem
        while (item && item !== column) {
            if (item instanceof Flickable)
                shown = item
            item = item.parent
        }
        if (!item || !InputMode.usesKeyboard)
            return
        const top = shown.mapToItem(column, 0, 0).y + column.y
        const bottom = top + Math.min(shown.height, height - 2 * Theme.padding)
        if (top - Theme.padding < contentY)
            contentY = Math.max(0, top - Theme.padding)
        else if (bottom + Theme.padding > contentY + height)
            contentY = Math.min(contentHeight - height, bottom + Theme.padding - height)
    }

    contentHeight: column.height + 2 * Theme.padding
    clip: true
    boundsBehavior: Flickable.StopAtBounds
    pixelAligned: true
    onFocusItemChanged: revealFocus()

    T.ScrollBar.vertical: ScrollIndicatorBar {}

    Column {
        id: column
        x: Theme.padding
        y: Theme.padding
        width: parent.width - 2 * Theme.padding
    }
}
