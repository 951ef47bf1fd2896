import QtQuick
import Mosslantern.Common

/// A word on the state of something, in one colour on a lighter ground of it.
Rectangle {
    id: root

    required property string symbol
    required property string text
    required property color tint

    implicitWidth: row.implicitWidth + 2 * 8
    implicitHeight: row.implicitHeight + 2 * 4
    radius: Theme.controlRadius
    color: Qt.rgba(tint.r, tint.g, tint.b, 0.1)
    Accessible.role: Accessible.StaticText
    Accessible.name: text

    Row {
        id: row
        anchors.centerIn: parent
        spacing: 4

        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            name: root.symbol
            size: 12
            color: root.tint
        }
        Text {
            anchors.verticalCenter: parent.verticalCenter
            text: root.text
            color: root.tint
            font.family: Theme.family
            font.pixelSize: Theme.caption
            font.weight: Font.Bold
            textFormat: Text.PlainText
        }
    }
}
