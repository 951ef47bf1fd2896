pragma ComponentBehavior: Bound

import QtQuick
import Mosslantern.Common
import Mosslantern.Library

/// The selectable list of collections and the button that makes one.
FocusScope {
    id: root

    required property CollectionsView collections

    /// The Return key on the selected collection.
    signal activated

    ScreenHeader {
        id: header
        width: parent.width
        title: qsTr("Collections")

        ToolBarButton {
            objectName: "newCollection"
            text: qsTr("New Collection")
            symbol: "folder.badge.plus"
            onClicked: root.collections.isCreatingCollection = true
        }
    }

    RecordList {
        id: list
        objectName: "collectionList"
        anchors.top: header.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        leftMargin: 10
        rightMargin: 10
        label: header.title
        model: root.collections.collections
        selection: root.collections.selection
        hasSelection: root.collections.selectedCollection !== null
        onRemovalRequested: root.collections.deleteCollections([selection.row()])
        onActivated: root.activated()
        onMenuRequested: (row) => menu.openFor(row as CollectionRow, Qt.point(row.width / 2, row.height / 2))

        delegate: CollectionRow {
            width: list.width - 20
            isSelected: record === root.collections.selectedCollection
            isFocused: list.activeFocus
            hasMenu: menu.visible && menu.collection === record
            onChosen: {
                list.forceActiveFocus(Qt.MouseFocusReason)
                root.collections.selectedCollection = record
            }
            onLetGo: root.collections.selection.letGo()
            onMenuRequested: (position) => menu.openFor(this, position)
        }
    }

    ContextMenu {
        id: menu

        property Collection collection

        function openFor(row: CollectionRow, position: point) {
            collection = row.record
            popup(row, position)
        }

        ContextMenuItem {
            objectName: "deleteCollection"
            text: qsTr("Delete")
            isDestructive: true
            shortcutText: qsTr("Del")
            onTriggered: root.collections.deleteCollections([root.collections.rowOf(menu.collection)])
        }
    }
}
