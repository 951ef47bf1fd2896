import QtQuick
import Mosslantern.Common

/// A wide, flat button in one colour: its symbol and text on a lighter ground of it.
ControlButton {
    id: root

    required property string symbol
    required property color tint
    property color ground: tint
    property real groundOpacity: 0.2
    property int fontSize: Theme.body
    property int symbolSize: Theme.title3

    implicitHeight: contentItem.implicitHeight + Theme.padding

    contentItem: Item {
        implicitHeight: root.symbolSize + 2

        Row {
            anchors.centerIn: parent
            spacing: 4

            Symbol {
                name: root.symbol
                size: root.symbolSize
                color: root.tint
                anchors.verticalCenter: parent.verticalCenter
            }
            Text {
                text: root.text
                color: root.tint
                font.family: Theme.family
                font.pixelSize: root.fontSize
                textFormat: Text.PlainText
                anchors.verticalCenter: parent.verticalCenter
            }
        }
    }
    // The tint is darkest when pressed and never so light that its own text fades in it.
    background: RoundedArea {
        radius: Theme.controlRadius
        color: Qt.tint(Theme.tintedGround, Qt.alpha(root.ground, root.groundOpacity * emphasis))

        readonly property real emphasis: !root.enabled ? 1 : root.pressed ? 0.7 : root.hovered ? 1.2 : 1

        FocusRing {
            visible: root.isMarked
        }
    }
}
