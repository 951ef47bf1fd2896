import QtQuick
import Mosslantern.Common

/// A small bordered button with a symbol, a text or both. Without a text it shows its label in a tool tip.
ControlButton {
    id: root

    property string symbol
    property bool isDestructive: false
    readonly property color contentColor: !enabled ? Theme.disabled : isDestructive ? Theme.red : Theme.primary

    implicitWidth: text === "" ? implicitHeight + 2 : implicitContentWidth + 2 * 8
    implicitHeight: 24

    contentItem: SymbolLabel {
        symbol: root.symbol
        symbolSize: 14
        text: root.text
        color: root.contentColor
        fontSize: Theme.caption
        spacing: 5
    }
    background: Rectangle {
        radius: Theme.controlRadius - 1
        color: Theme.raisedBackground
        border.color: Theme.separator

        Rectangle {
            anchors.fill: parent
            radius: parent.radius
            visible: root.enabled
            color: root.pressed ? Theme.pressed : root.hovered ? Theme.hovered : "transparent"
        }
        FocusRing {
            visible: root.isMarked
        }
    }

    HoverHandler {
        id: hover
    }
    ToolTipView {
        text: root.label
        visible: root.text === "" && (hover.hovered || root.isMarked)
    }
}
