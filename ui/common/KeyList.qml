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

    /// What is chosen is to move so many rows down; further than the list goes for its end.
    signal moved(rows: int)

    clip: true
    activeFocusOnTab: true
    keyNavigationEnabled: false
    boundsBehavior: Flickable.StopAtBounds
    highlight: null
    Accessible.role: Accessible.List
    Accessible.name: label
    Keys.onPressed: (event) => {
        const page = Math.max(1, Math.floor(height * count / Math.max(1, contentHeight)) - 1)
        const rows = {
            [Qt.Key_Up]: -1,
            [Qt.Key_Down]: 1,
            [Qt.Key_PageUp]: -page,
            [Qt.Key_PageDown]: page,
            [Qt.Key_Home]: -count,
            [Qt.Key_End]: count
        }[event.key]
        event.accepted = rows !== undefined
        if (event.accepted)
            moved(rows)
    }

    T.ScrollBar.vertical: ScrollIndicatorBar {}

    FocusRing {
        parent: root
        distance: -3
        visible: root.marksItself && root.activeFocus && InputMode.usesKeyboard
    }
}
