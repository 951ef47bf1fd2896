import QtQuick
import Mosslantern.Common

/// A titled card that groups controls.
Column {
    id: root

    required property string title
    default property alias content: holder.data

    spacing: 12

    Text {
        text: root.title
        color: Theme.secondary
        font.family: Theme.family
        font.pixelSize: Theme.caption
        font.weight: Font.Medium
        font.capitalization: Font.AllUppercase
        font.letterSpacing: 0.5
        textFormat: Text.PlainText
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }

    Item {
        width: root.width
        implicitHeight: holder.childrenRect.height + 2 * 16

        Rectangle {
            anchors.fill: parent
            color: Theme.cardBackground
            radius: Theme.cardRadius
        }
        Rectangle {
            anchors.fill: parent
            color: "transparent"
            border.color: Theme.separator
            radius: Theme.cardRadius
        }
        Item {
            id: holder
            x: 16
            y: 16
            width: parent.width - 2 * 16
            height: childrenRect.height
        }
    }
}
