pragma ComponentBehavior: Bound

import QtQuick
import Mosslantern.Common
import Mosslantern.Library

/// The available assets, to be ticked and added to a collection.
SheetView {
    id: root

    required property CollectionDetailView detail

    width: Math.min(620, parent.width - 2 * margins)
    height: Math.min(540, parent.height - 2 * margins)
    title: qsTr("Add Assets to %1").arg(detail.collection ? detail.collection.name : "")
    visible: detail.isAddingAssets
    onClosed: detail.cancelAdding()
    onAboutToShow: grid.forceActiveFocus(Qt.OtherFocusReason)

    ContentUnavailableView {
        anchors.fill: parent
        visible: grid.count === 0
        symbol: "photo.badge.plus"
        title: qsTr("No Available Assets")
        description: qsTr("All assets are already in this collection or no assets exist")
    }
    AdaptiveGrid {
        id: grid
        objectName: "pickGrid"
        anchors.fill: parent
        visible: count > 0
        label: qsTr("Available assets")
        model: root.detail.picks
        frameSize: 100
        frameRadius: Theme.thumbnailRadius
        columnSpacing: 10
        rowSpacing: 10
        rowHeight: 100

        delegate: PickCell {
            grid: grid
            onToggled: root.detail.toggle(record)
            onActivated: root.detail.canAdd ? root.detail.addSelected() : root.detail.toggle(record)
        }
    }

    buttons: [
        PushButton {
            objectName: "cancelAddAssets"
            text: qsTr("Cancel")
            onClicked: root.detail.cancelAdding()
        },
        PushButton {
            objectName: "confirmAddAssets"
            text: qsTr("Add")
            isProminent: true
            enabled: root.detail.canAdd
            onClicked: root.detail.addSelected()
        }
    ]
}
