import QtQuick
import Mosslantern.Common

/// One available asset with its tick.
GridCell {
    id: root

    required property Asset record
    required property bool isTicked

    /// The tick is to come or to go.
    signal toggled

    objectName: "pickCell"
    Accessible.role: Accessible.CheckBox
    Accessible.name: record ? record.name : ""
    Accessible.checkable: true
    Accessible.checked: isTicked
    Accessible.onToggleAction: toggled()
    onTapped: toggled()
    onSpacePressed: toggled()

    Thumbnail {
        anchors.fill: parent
        source: root.record ? root.record.fileURL : ""
        radius: root.grid.frameRadius
        opacity: root.isTicked ? 0.6 : 1
    }
    Rectangle {
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        anchors.margins: 4
        width: 22
        height: 22
        radius: width / 2
        visible: root.isTicked
        color: Theme.tickBackground

        Symbol {
            anchors.centerIn: parent
            name: "checkmark.circle.fill"
            size: parent.width
            color: Theme.blue
        }
    }
}
