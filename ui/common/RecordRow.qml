import QtQuick
import Mosslantern.Common

/// A row of a RecordList. A click selects it; a click with the Control key lets go of it when it is selected.
Item {
    id: root

    required property bool isSelected
    /// Whether the list has the keyboard.
    required property bool isFocused
    /// Whether it is drawn on the accent colour.
    readonly property bool isLit: isSelected && isFocused
    /// Whether a menu for it is open.
    property bool hasMenu: false
    /// Of the background, from the row's edges.
    property real sideMargin: 0

    signal chosen
    signal letGo
    signal menuRequested(position: point)

    Accessible.role: Accessible.ListItem
    Accessible.selectable: true
    Accessible.selected: isSelected
    Accessible.onPressAction: chosen()

    RowBackground {
        anchors.fill: parent
        anchors.topMargin: 1
        anchors.bottomMargin: 1
        anchors.leftMargin: root.sideMargin
        anchors.rightMargin: root.sideMargin
        isSelected: root.isSelected
        isFocused: root.isFocused
        isHovered: hover.hovered

        FocusRing {
            distance: 0
            visible: root.hasMenu
        }
    }
    HoverHandler {
        id: hover
    }
    ClickHandler {
        acceptedModifiers: Qt.NoModifier
        onTapped: root.chosen()
    }
    ClickHandler {
        acceptedModifiers: Qt.ControlModifier
        onTapped: root.isSelected ? root.letGo() : root.chosen()
    }
    ClickHandler {
        acceptedButtons: Qt.RightButton
        onTapped: (event) => root.menuRequested(event.position)
    }
}
