import QtQuick
import Mosslantern.Common

/// One asset of a collection.
GridCell {
    id: root

    required property Asset record

    objectName: "memberCell"
    caption: record ? record.name : ""
    Accessible.role: Accessible.ListItem
    Accessible.name: caption

    Thumbnail {
        anchors.fill: parent
        source: root.record ? root.record.fileURL : ""
        radius: root.grid.frameRadius
    }
}
