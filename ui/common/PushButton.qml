import QtQuick
import QtQuick.Templates as T
import Mosslantern.Common

/// A button with a text and, if it has one, a symbol before it.
T.Button {
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
    spacing: 6
    focusPolicy: Qt.StrongFocus
    Accessible.role: Accessible.Button
    Accessible.name: text
    Keys.onReturnPressed: root.clicked()
    Keys.onEnterPressed: root.clicked()

    contentItem: Item {
        implicitWidth: childrenRect.width
        implicitHeight: childrenRect.height

        Row {
            anchors.centerIn: parent
            spacing: root.spacing

            Symbol {
                visible: root.symbol !== ""
                name: root.symbol
                size: 16
                color: root.contentColor
                anchors.verticalCenter: parent.verticalCenter
            }
            Text {
                text: root.text
                color: root.contentColor
                font.family: Theme.family
                font.pixelSize: Theme.body
                font.weight: Font.Medium
                textFormat: Text.PlainText
                anchors.verticalCenter: parent.verticalCenter
            }
        }
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
            visible: root.visualFocus
        }
    }
}
