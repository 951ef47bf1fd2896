import QtQuick
import Mosslantern.Common

Item {
    id: root

    required property ContentTemplate record
    required property bool isSelected
    required property bool isFocused
    readonly property bool isLit: isSelected && isFocused

    signal chosen

    objectName: "templateRow"
    implicitHeight: column.implicitHeight + 2 * (4 + 4)
    Accessible.role: Accessible.ListItem
    Accessible.name: name.text
    Accessible.description: day.text
    Accessible.selectable: true
    Accessible.selected: isSelected
    Accessible.onPressAction: chosen()

    RowBackground {
        anchors.fill: parent
        anchors.leftMargin: 10
        anchors.rightMargin: 10
        isSelected: root.isSelected
        isFocused: root.isFocused
        isHovered: hover.hovered
    }
    Column {
        id: column
        x: 20
        y: 8
        width: parent.width - 40
        spacing: 4

        ElidedText {
            id: name
            width: parent.width
            text: root.record ? root.record.name : ""
            color: root.isLit ? Theme.accentText : Theme.primary
            font.pixelSize: Theme.headline
            font.weight: Font.DemiBold
        }
        ElidedText {
            id: day
            width: parent.width
            text: root.record ? Dates.day(root.record.createdAt) : ""
            color: root.isLit ? Theme.accentText : Theme.secondary
            font.pixelSize: Theme.caption
        }
    }
    HoverHandler {
        id: hover
    }
    TapHandler {
        onTapped: root.chosen()
    }
}
