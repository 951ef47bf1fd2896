import QtQuick
import Mosslantern.Common

/// A text and, if there is one, a symbol before it, in the middle of the item.
Item {
    id: root

    property string symbol
    property real symbolSize: 16
    required property string text
    required property color color
    property int weight: Font.Medium
    property int fontSize: Theme.body
    property alias spacing: row.spacing
    /// Whether a text that does not fit shows whole in a tool tip.
    property alias showsWhole: label.showsWhole

    readonly property real symbolWidth: symbol === "" ? 0 : text === "" ? symbolSize : symbolSize + row.spacing

    implicitWidth: symbolWidth + label.implicitWidth
    implicitHeight: row.implicitHeight

    Row {
        id: row
        anchors.centerIn: parent
        spacing: 6

        Symbol {
            visible: root.symbol !== ""
            name: root.symbol
            size: root.symbolSize
            color: root.color
            anchors.verticalCenter: parent.verticalCenter
        }
        ElidedText {
            id: label
            visible: root.text !== ""
            width: Math.min(implicitWidth, root.width - root.symbolWidth)
            text: root.text
            color: root.color
            font.pixelSize: root.fontSize
            font.weight: root.weight
            anchors.verticalCenter: parent.verticalCenter
            Accessible.ignored: true
        }
    }
}
