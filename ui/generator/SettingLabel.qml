import QtQuick
import Mosslantern.Common

/// The name of a setting with its symbol.
Row {
    id: root

    required property string symbol
    required property string text
    property int weight: Font.Normal

    spacing: 6

    Symbol {
        name: root.symbol
        size: Theme.symbol
        color: Theme.primary
        anchors.verticalCenter: parent.verticalCenter
    }
    Text {
        text: root.text
        color: Theme.primary
        font.family: Theme.family
        font.pixelSize: Theme.body
        font.weight: root.weight
        textFormat: Text.PlainText
        anchors.verticalCenter: parent.verticalCenter
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }
}
