import QtQuick
import Mosslantern.Common

/// Stands where there is nothing to show: a symbol, a title and, if there is one, a description.
Item {
    id: root

    property string symbol
    required property string title
    property string description

    Accessible.role: Accessible.StaticText
    Accessible.name: title
    Accessible.description: description

    Column {
        anchors.centerIn: parent
        width: Math.min(parent.width - 2 * Theme.padding, 360)
        spacing: 6

        Symbol {
            visible: root.symbol !== ""
            name: root.symbol
            size: 44
            color: Theme.secondary
            anchors.horizontalCenter: parent.horizontalCenter
        }
        Item {
            visible: root.symbol !== ""
            width: 1
            height: 4
        }
        Text {
            width: parent.width
            text: root.title
            color: Theme.primary
            font.family: Theme.family
            font.pixelSize: Theme.title2
            font.weight: Font.Bold
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
            textFormat: Text.PlainText
        }
        Text {
            visible: root.description !== ""
            width: parent.width
            text: root.description
            color: Theme.secondary
            font.family: Theme.family
            font.pixelSize: Theme.body
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
            textFormat: Text.PlainText
        }
    }
}
