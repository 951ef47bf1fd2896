import QtQuick
import Mosslantern.Common

/// One asset of the library, or, without one, the tile that imports more.
GridCell {
    id: root

    /// Null for the tile.
    required property Asset record

    signal importRequested

    objectName: record ? "assetCell" : "addCell"
    caption: record ? record.name : ""
    captionColor: Theme.secondary
    captionAlignment: Text.AlignHCenter
    Accessible.role: record ? Accessible.ListItem : Accessible.Button
    Accessible.name: record ? record.name : qsTr("Import Images")
    Accessible.onPressAction: if (!record) importRequested()
    onActivated: if (!record) importRequested()
    onSpacePressed: if (!record) importRequested()

    Thumbnail {
        id: thumbnail
        anchors.fill: parent
        visible: root.record !== null
        source: root.record ? root.record.fileURL : ""
        radius: root.grid.frameRadius
        hasShadow: true
    }
    Spinner {
        anchors.centerIn: parent
        visible: !thumbnail.isLoaded && thumbnail.visible
    }
    Loader {
        anchors.fill: parent
        active: root.record === null
        source: "AddTile.qml"
        onLoaded: (item as AddTile).clicked.connect(root.importPointed)
    }

    function importPointed() {
        grid.point(index)
        importRequested()
    }
}
