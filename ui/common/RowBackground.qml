import QtQuick
import Mosslantern.Common

/// What lies behind a row of a list.
Item {
    id: root

    required property bool isSelected
    /// Whether the list has the keyboard.
    required property bool isFocused
    property bool isHovered: false

    RoundedArea {
        anchors.fill: parent
        visible: root.isSelected || root.isHovered
        radius: Theme.controlRadius
        color: !root.isSelected ? Theme.hovered : root.isFocused ? Theme.accent : Theme.selected
    }
}
