import QtQuick
import Mosslantern.Common
import Mosslantern.Generator

/// A template: its name and its day.
RecordRow {
    id: root

    required property ContentTemplate record

    objectName: "templateRow"
    implicitHeight: column.implicitHeight + 2 * (4 + 4)
    sideMargin: 10
    Accessible.name: name.text
    Accessible.description: day.text

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
            color: root.isLit ? Theme.accentText : root.isSelected ? Theme.primary : Theme.secondary
            font.pixelSize: Theme.caption
        }
    }
}
