import QtQuick
import Mosslantern.Common

/// A small label with its symbol.
Row {
    id: root

    required property string symbol
    required property string text

    spacing: 5

    Symbol {
        name: root.symbol
        size: Theme.body
        color: Theme.primary
        anchors.verticalCenter: parent.verticalCenter
    }
    Text {
        text: root.text
        color: Theme.primary
        font.family: Theme.family
        font.pixelSize: Theme.caption
        textFormat: Text.PlainText
        anchors.verticalCenter: parent.verticalCenter
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }
}
