import QtQuick
import Mosslantern.Common

/// One available asset with its tick.
Item {
    id: root

    required property AdaptiveGrid grid
    required property int index
    required property Asset record
    required property bool isTicked
    readonly property bool isCurrent: GridView.isCurrentItem

    signal toggled

    objectName: "pickCell"
    width: grid.cellWidth
    height: grid.cellHeight
    Accessible.role: Accessible.CheckBox
    Accessible.name: record ? record.name : ""
    Accessible.checkable: true
    Accessible.checked: isTicked
    Accessible.onToggleAction: toggled()
    Keys.onSpacePressed: toggled()
    Keys.onReturnPressed: toggled()
    Keys.onEnterPressed: toggled()

    Item {
        x: root.grid.firstColumn
        width: root.grid.columnWidth
        height: root.grid.rowHeight

        Item {
            anchors.horizontalCenter: parent.horizontalCenter
            width: 100
            height: 100

            Thumbnail {
                anchors.fill: parent
                source: root.record ? root.record.fileURL : ""
                radius: 8
                opacity: root.isTicked ? 0.6 : 1
            }
            Rectangle {
                anchors.right: parent.right
                anchors.bottom: parent.bottom
                anchors.margins: 4
                width: 22
                height: 22
                radius: 11
                visible: root.isTicked
                color: "white"

                Symbol {
                    anchors.centerIn: parent
                    name: "checkmark.circle.fill"
                    size: 22
                    color: Theme.blue
                }
            }
            FocusRing {
                radius: 10
                visible: root.grid.marksCurrent && root.isCurrent
            }
            TapHandler {
                onTapped: {
                    root.grid.point(root.index)
                    root.toggled()
                }
            }
        }
    }
}
