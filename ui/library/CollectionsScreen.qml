import QtQuick
import QtQuick.Templates as T
import Mosslantern.Common
import Mosslantern.Library

/// The list of collections above the selected collection.
FocusScope {
    id: root

    required property ScreenContext context

    Accessible.role: Accessible.Pane
    Accessible.name: qsTr("Collections")

    CollectionsView {
        id: collections
        context: root.context
        onSelectedCollectionChanged: root.showSelectedCollection()
    }

    function showSelectedCollection() {
        const properties = {"context": context, "collection": collections.selectedCollection}
        detail.setSource("")
        if (collections.selectedCollection)
            detail.setSource("CollectionDetail.qml", properties)
    }

    T.SplitView {
        anchors.fill: parent
        orientation: Qt.Vertical
        handle: SplitHandle {}

        CollectionList {
            collections: collections
            focus: true
            onActivated: (detail.item as CollectionDetail).focusAssets()
            T.SplitView.preferredHeight: root.height / 2
            T.SplitView.minimumHeight: 160
        }
        Item {
            T.SplitView.fillHeight: true
            T.SplitView.minimumHeight: 240

            ContentUnavailableView {
                anchors.fill: parent
                visible: collections.selectedCollection === null
                symbol: "folder"
                title: qsTr("Select a Collection")
            }
            Loader {
                id: detail
                anchors.fill: parent
            }
        }
    }

    NewCollectionAlert {
        collections: collections
    }
}
