import QtQuick
import Mosslantern.Common

/// One asset of the library, or, without one, the tile that imports more.
Item {
    id: root

    required property AdaptiveGrid grid
    required property int index
    required property Asset record
    readonly property bool isCurrent: GridView.isCurrentItem

    signal menuRequested(position: point)
    signal deletionRequested
    signal importRequested

    objectName: record ? "assetCell" : "addCell"
    width: grid.cellWidth
    height: grid.cellHeight
    Accessible.role: record ? Accessible.ListItem : Accessible.Button
    Accessible.name: record ? record.name : qsTr("Import Images")
    Accessible.onPressAction: if (!record) importRequested()
    Keys.onPressed: (event) => {
        const wantsMenu = event.key === Qt.Key_Menu || (event.key === Qt.Key_F10 && event.modifiers === Qt.ShiftModifier)
        const wantsImport = [Qt.Key_Return, Qt.Key_Enter, Qt.Key_Space].includes(event.key)
        if (root.record && wantsMenu)
            root.menuRequested(Qt.point(thumbnail.x + thumbnail.width / 2, thumbnail.height / 2))
        else if (root.record && [Qt.Key_Delete, Qt.Key_Backspace].includes(event.key))
            root.deletionRequested()
        else if (!root.record && wantsImport)
            root.importRequested()
        else
            return
        event.accepted = true
    }

    Item {
        id: column
        x: root.grid.firstColumn
        width: root.grid.columnWidth
        height: root.grid.rowHeight

        Thumbnail {
            id: thumbnail
            anchors.horizontalCenter: parent.horizontalCenter
            width: 150
            height: 150
            visible: root.record !== null
            source: root.record ? root.record.fileURL : ""
            radius: 12
            hasShadow: true

            Loader {
                anchors.centerIn: parent
                active: !thumbnail.isLoaded && thumbnail.visible
                sourceComponent: Spinner {}
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
            FocusRing {
                distance: 3
                radius: 15
                visible: root.grid.marksCurrent && root.isCurrent
            }
        }
        ElidedText {
            anchors.top: thumbnail.bottom
            anchors.topMargin: Theme.spacing
            anchors.horizontalCenter: parent.horizontalCenter
            width: Math.min(implicitWidth, parent.width)
            visible: root.record !== null
            text: root.record ? root.record.name : ""
            color: Theme.secondary
            font.pixelSize: Theme.caption
        }
        Loader {
            id: tile
            anchors.horizontalCenter: parent.horizontalCenter
            active: root.record === null
            source: "AddTile.qml"
        }
        Binding {
            target: tile.item
            property: "isMarked"
            value: root.grid.marksCurrent && root.isCurrent
            when: tile.item !== null
        }
        Connections {
            target: tile.item as AddTile
            ignoreUnknownSignals: true
            function onClicked() {
                root.grid.point(root.index)
                root.importRequested()
            }
        }
    }
}
