import QtQuick
import Mosslantern.Common

Item {
    id: root

    required property Collection record
    required property bool isSelected
    required property bool isFocused
    readonly property bool isLit: isSelected && isFocused

    signal chosen
    signal letGo
    signal menuRequested(position: point)

    objectName: "collectionRow"
    implicitHeight: 34
    Accessible.role: Accessible.ListItem
    Accessible.name: name.text
    Accessible.description: count.text
    Accessible.selectable: true
    Accessible.selected: isSelected
    Accessible.onPressAction: chosen()

    RowBackground {
        anchors.fill: parent
        anchors.topMargin: 1
        anchors.bottomMargin: 1
        isSelected: root.isSelected
        isFocused: root.isFocused
        isHovered: hover.hovered
    }
    Symbol {
        id: icon
        x: 10
        anchors.verticalCenter: parent.verticalCenter
        name: "folder.fill"
        size: 18
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
        color: root.isLit ? Theme.accentText : Theme.secondary
        font.family: Theme.family
        font.pixelSize: Theme.body
    }
    HoverHandler {
        id: hover
    }
    TapHandler {
        acceptedModifiers: Qt.NoModifier
        onTapped: root.chosen()
    }
    TapHandler {
        acceptedModifiers: Qt.ControlModifier
        onTapped: {
            if (root.isSelected)
                root.letGo()
            else
                root.chosen()
        }
    }
    TapHandler {
        acceptedButtons: Qt.RightButton
        onTapped: (event) => root.menuRequested(event.position)
    }
}
