pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Mosslantern.Common
import Mosslantern.Library

/// The selectable list of collections and the button that makes one.
FocusScope {
    id: root

    required property CollectionsView collections

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

    ListView {
        id: list
        objectName: "collectionList"
        anchors.top: header.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        leftMargin: 10
        rightMargin: 10
        topMargin: 8
        bottomMargin: 8
        clip: true
        focus: true
        activeFocusOnTab: true
        reuseItems: true
        boundsBehavior: Flickable.StopAtBounds
        keyNavigationEnabled: false
        model: root.collections.collections
        currentIndex: -1
        Accessible.role: Accessible.List
        Accessible.name: header.title

        Keys.onUpPressed: moveSelection(-1)
        Keys.onDownPressed: moveSelection(1)
        Keys.onDeletePressed: deleteSelected()
        Keys.onPressed: (event) => {
            if (event.key !== Qt.Key_Backspace)
                return
            deleteSelected()
            event.accepted = true
        }

        function moveSelection(by: int) {
            root.collections.moveSelection(by)
            positionViewAtIndex(root.collections.rowOf(root.collections.selectedCollection), ListView.Contain)
        }
        function deleteSelected() {
            root.collections.deleteCollections([root.collections.rowOf(root.collections.selectedCollection)])
        }

        T.ScrollBar.vertical: ScrollIndicatorBar {}

        delegate: CollectionRow {
            width: list.width - 20
            isSelected: record === root.collections.selectedCollection
            isFocused: list.activeFocus
            onChosen: {
                list.forceActiveFocus(Qt.MouseFocusReason)
                root.collections.selectedCollection = record
            }
            onLetGo: root.collections.selectedCollection = null
            onMenuRequested: (position) => menu.openFor(this, position)
        }

        FocusRing {
            distance: -3
            visible: list.activeFocus && root.collections.selectedCollection === null
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
