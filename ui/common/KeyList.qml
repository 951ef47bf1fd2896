import QtQuick
import QtQuick.Templates as T
import Mosslantern.Common

/// A list whose owner knows what is chosen in it: the arrow keys, Home, End and the keys for pages ask for another row.
ListView {
    id: root

    /// What it holds, for those who do not see it.
    required property string label
    /// Whether a ring around the list shows that it has the keyboard, where no row does.
    property bool marksItself: true
    /// Whether its rows can be opened or removed, or have menus.
    property bool acts: false
    readonly property ItemKeys keys: ItemKeys {
        acts: root.acts
        onMovedByRows: (rows) => root.moved(rows)
        onMovedByPages: (pages) => {
            const page = Math.floor(root.height * root.count / Math.max(1, root.contentHeight)) - 1
            root.moved(pages * Math.max(1, page))
        }
        onMovedToEnd: (isLast) => root.moved(isLast ? root.count : -root.count)
    }

    /// What is chosen is to move so many rows down; further than the list goes for its end.
    signal moved(rows: int)

    clip: true
    activeFocusOnTab: true
    keyNavigationEnabled: false
    boundsBehavior: Flickable.StopAtBounds
    highlight: null
    Accessible.role: Accessible.List
    Accessible.name: label
    Keys.onPressed: (event) => event.accepted = keys.take(event)

    T.ScrollBar.vertical: ScrollIndicatorBar {}

    FocusRing {
        parent: root
        distance: -3
        visible: root.marksItself && root.activeFocus && InputMode.usesKeyboard
    }
}
