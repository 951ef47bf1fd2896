import QtQuick
import Mosslantern.Common
import Mosslantern.Library

/// A collection: its name and the number of its assets.
RecordRow {
    id: root

    required property Collection record

    objectName: "collectionRow"
    implicitHeight: 34
    Accessible.name: name.text
    Accessible.description: count.text

    Symbol {
        id: icon
        x: 10
        anchors.verticalCenter: parent.verticalCenter
        name: "folder.fill"
        size: Theme.largeSymbol
        color: root.isLit ? Theme.accentText : Theme.blue
    }
    ElidedText {
        id: name
        anchors.left: icon.right
        anchors.leftMargin: 9
        anchors.right: count.left
        anchors.rightMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        text: root.record ? root.record.name : ""
        color: root.isLit ? Theme.accentText : Theme.primary
    }
    Text {
        id: count
        objectName: "collectionCount"
        anchors.right: parent.right
        anchors.rightMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        text: root.record ? String(root.record.assetCount) : ""
        color: root.isLit ? Theme.accentText : root.isSelected ? Theme.primary : Theme.secondary
        font.family: Theme.family
        font.pixelSize: Theme.body
    }
}
