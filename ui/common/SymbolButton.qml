import QtQuick
import QtQuick.Templates as T
import Mosslantern.Common

/// A button that is a symbol, with its text as its tool tip.
ControlButton {
    id: root

    required property string symbol
    property real symbolSize: Theme.largeSymbol
    property color symbolColor: enabled ? Theme.primary : Theme.disabled
    /// Whether a ground shows that the pointer is on it.
    property bool hasGround: true
    property bool hasToolTip: true

    display: T.AbstractButton.IconOnly

    contentItem: Item {
        Symbol {
            anchors.centerIn: parent
            name: root.symbol
            size: root.symbolSize
            color: root.symbolColor
        }
    }
    background: Rectangle {
        radius: Theme.controlRadius
        color: !root.enabled || !root.hasGround ? "transparent"
            : root.pressed ? Theme.pressed : root.hovered ? Theme.hovered : "transparent"

        FocusRing {
            distance: 0
            visible: root.isMarked
        }
    }

    ToolTipView {
        text: root.text
        visible: root.hasToolTip && (root.hovered || root.isMarked)
    }
}
