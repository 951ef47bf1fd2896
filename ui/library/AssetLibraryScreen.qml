pragma ComponentBehavior: Bound

import QtQuick
import Mosslantern.Common
import Mosslantern.Library

/// Every imported image as a thumbnail, and the tile that imports more.
FocusScope {
    id: root

    required property ScreenContext context

    Accessible.role: Accessible.Pane
    Accessible.name: qsTr("Assets")

    AssetLibraryView {
        id: library
        context: root.context
    }

    ScreenHeader {
        id: header
        z: 1
        width: parent.width
        color: Theme.windowBackground
        title: qsTr("Assets")
    }

    AdaptiveGrid {
        id: grid
        objectName: "assetGrid"
        anchors.top: header.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        // Header, menu bar and the window's edges hide what is scrolled out of it; a clip would double the number of
        // graphics pipelines.
        clip: false
        focus: true
        label: header.title
        model: library.cells
        frameSize: 150
        frameRadius: Theme.tileRadius
        maximumColumnWidth: 200
        columnSpacing: 20
        rowSpacing: 20
        rowHeight: 150 + Theme.spacing + Theme.captionHeight
        canRemove: currentAsset !== null
        onRemovalRequested: library.deleteAsset(currentAsset)

        readonly property AssetCell currentCell: currentItem as AssetCell
        readonly property Asset currentAsset: currentCell ? currentCell.record : null

        delegate: AssetCell {
            grid: grid
            onMenuRequested: (position) => menu.openFor(this, position)
            onImportRequested: library.isImporterPresented = true
        }
    }

    ContextMenu {
        id: menu
        objectName: "assetMenu"

        property Asset asset

        function openFor(cell: AssetCell, position: point) {
            asset = cell.record
            if (asset)
                popup(cell, position)
        }

        ContextMenuItem {
            objectName: "deleteAsset"
            text: qsTr("Delete")
            isDestructive: true
            shortcutText: qsTr("Del")
            onTriggered: library.deleteAsset(menu.asset)
        }
    }

    DropArea {
        id: drop
        anchors.fill: grid
        keys: ["text/uri-list"]
        onEntered: (drag) => drag.accepted = drag.hasUrls
        onDropped: (drop) => {
            if (library.importDropped(drop.urls))
                drop.accept(Qt.CopyAction)
        }

        RoundedArea {
            anchors.fill: parent
            anchors.margins: 8
            visible: drop.containsDrag
            radius: Theme.tileRadius
            color: Theme.dropTarget
            borderColor: Theme.accent
            borderWidth: 2
        }
    }
}
