pragma ComponentBehavior: Bound

import QtQuick
import Mosslantern.Common
import Mosslantern.Library

/// The assets of one collection.
FocusScope {
    id: root

    required property ScreenContext context
    required property Collection collection

    /// Gives the keyboard to the assets, if there are any.
    function focusAssets() {
        if (grid.visible)
            grid.forceActiveFocus(Qt.TabFocusReason)
    }

    CollectionDetailView {
        id: detail
        context: root.context
        collection: root.collection
    }

    ScreenHeader {
        id: header
        width: parent.width
        title: root.collection ? root.collection.name : ""

        ToolBarButton {
            objectName: "addAssets"
            text: qsTr("Add Assets")
            symbol: "plus.rectangle.on.rectangle"
            enabled: detail.availableAssets.count > 0
            onClicked: detail.isAddingAssets = true
        }
    }

    ContentUnavailableView {
        anchors.top: header.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        visible: detail.members.count === 0
        symbol: "photo.on.rectangle.angled"
        title: qsTr("No Assets")
        description: qsTr("Add some assets to this collection")
    }

    AdaptiveGrid {
        id: grid
        objectName: "memberGrid"
        anchors.top: header.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        visible: count > 0
        label: qsTr("Assets in %1").arg(header.title)
        model: detail.members
        frameSize: 150
        frameRadius: Theme.thumbnailRadius
        columnSpacing: 20
        rowSpacing: 20
        rowHeight: 150 + Theme.spacing + Theme.captionHeight
        canRemove: currentCell !== null
        onRemovalRequested: detail.removeFromCollection(currentCell.record)

        readonly property MemberCell currentCell: currentItem as MemberCell

        delegate: MemberCell {
            grid: grid
            onMenuRequested: (position) => menu.openFor(this, position)
        }
    }

    ContextMenu {
        id: menu
        width: 250

        property Asset asset

        function openFor(cell: MemberCell, position: point) {
            asset = cell.record
            popup(cell, position)
        }

        ContextMenuItem {
            objectName: "removeFromCollection"
            text: qsTr("Remove from Collection")
            isDestructive: true
            shortcutText: qsTr("Del")
            onTriggered: detail.removeFromCollection(menu.asset)
        }
    }

    AddAssetsSheet {
        detail: detail
    }
}
