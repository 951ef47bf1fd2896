import QtQuick
import Mosslantern.Common

/// What lies behind a row of a list.
Rectangle {
    required property bool isSelected
    /// Whether the list has the keyboard.
    required property bool isFocused
    property bool isHovered: false

    radius: Theme.controlRadius
    color: isSelected ? (isFocused ? Theme.accent : Theme.selected) : isHovered ? Theme.hovered : "transparent"
}
