import QtQuick
import Mosslantern.Common

/// One asset of a collection.
Item {
    id: root

    required property AdaptiveGrid grid
    required property int index
    required property Asset record
    readonly property bool isCurrent: GridView.isCurrentItem

    signal menuRequested(position: point)
    signal removalRequested

    objectName: "memberCell"
    width: grid.cellWidth
    height: grid.cellHeight
    Accessible.role: Accessible.ListItem
    Accessible.name: name.text
    Keys.onPressed: (event) => {
        const wantsMenu = event.key === Qt.Key_Menu || (event.key === Qt.Key_F10 && event.modifiers === Qt.ShiftModifier)
        if (wantsMenu)
            menuRequested(thumbnail.mapToItem(root, Qt.point(thumbnail.width / 2, thumbnail.height / 2)))
        else if ([Qt.Key_Delete, Qt.Key_Backspace].includes(event.key))
            removalRequested()
        else
            return
        event.accepted = true
    }

    Item {
        x: root.grid.firstColumn
        width: root.grid.columnWidth
        height: root.grid.rowHeight

        Item {
            anchors.horizontalCenter: parent.horizontalCenter
            width: 150
            height: parent.height

            Thumbnail {
                id: thumbnail
                width: 150
                height: 150
                source: root.record ? root.record.fileURL : ""
                radius: 8

                FocusRing {
                    distance: 3
                    radius: 11
                    visible: root.grid.marksCurrent && root.isCurrent
                }
            }
            ElidedText {
                id: name
                anchors.top: thumbnail.bottom
                anchors.topMargin: 8
                width: parent.width
                text: root.record ? root.record.name : ""
                font.pixelSize: Theme.caption
            }
            TapHandler {
                onTapped: root.grid.point(root.index)
            }
            TapHandler {
                acceptedButtons: Qt.RightButton
                onTapped: (event) => {
                    root.grid.point(root.index)
                    root.menuRequested(thumbnail.mapToItem(root, event.position))
                }
            }
        }
    }
}
