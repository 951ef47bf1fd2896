import QtQuick
import Mosslantern.Common

/// A button with a text and, if it has one, a symbol before it. A text that does not fit shows whole in a tool tip.
ControlButton {
    id: root

    property string symbol
    property bool isProminent: false
    property bool isDestructive: false
    readonly property color contentColor: !enabled ? Theme.disabled : isProminent ? Theme.accentText
        : isDestructive ? Theme.red : Theme.primary

    implicitWidth: Math.max(implicitContentWidth + leftPadding + rightPadding, Theme.controlHeight)
    implicitHeight: Theme.controlHeight
    leftPadding: symbol !== "" ? 10 : 14
    rightPadding: 14

    contentItem: SymbolLabel {
        showsWhole: false
        symbol: root.symbol
        text: root.text
        color: root.contentColor
    }
    background: Rectangle {
        radius: Theme.controlRadius
        color: root.isProminent && root.enabled
               ? (root.pressed ? Theme.accentPressed : root.hovered ? Theme.accentHovered : Theme.accent)
               : Theme.raisedBackground
        border.color: root.isProminent && root.enabled ? "transparent" : Theme.separator

        Rectangle {
            anchors.fill: parent
            radius: parent.radius
            visible: root.enabled && !root.isProminent
            color: root.pressed ? Theme.pressed : root.hovered ? Theme.hovered : "transparent"
        }
        FocusRing {
            distance: root.isProminent ? 4 : 2
            visible: root.isMarked
        }
    }

    Loader {
        active: root.implicitWidth > root.width && (root.hovered || root.isMarked)
        source: "ToolTipView.qml"
        onLoaded: (item as ToolTipView).showFor(root, root.text)
    }
}
