import QtQuick
import QtQuick.Templates as T
import Mosslantern.Common

/// A toolbar's button: a symbol whose label is its tool tip.
T.ToolButton {
    id: root

    required property string symbol
    readonly property bool isMarked: activeFocus && InputMode.usesKeyboard

    implicitWidth: 34
    implicitHeight: Theme.controlHeight + 2
    focusPolicy: Qt.StrongFocus
    display: T.AbstractButton.IconOnly
    Accessible.role: Accessible.Button
    Accessible.name: text
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()

    contentItem: Item {
        Symbol {
            anchors.centerIn: parent
            name: root.symbol
            size: Theme.largeSymbol
            color: root.enabled ? Theme.primary : Theme.disabled
        }
    }
    background: Rectangle {
        radius: Theme.controlRadius
        color: !root.enabled ? "transparent" : root.pressed ? Theme.pressed : root.hovered ? Theme.hovered : "transparent"

        FocusRing {
            distance: 0
            visible: root.isMarked
        }
    }

    ToolTipView {
        text: root.text
        visible: root.hovered || root.isMarked
    }
}
