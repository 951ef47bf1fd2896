import QtQuick
import Mosslantern.Common
import Mosslantern.Generator

/// Where slideshows are made, and, in the other tab, all that have been made.
FocusScope {
    id: root

    required property ScreenContext context
    /// The screen of the other tab, which has a context as well.
    required property url historyScreen
    /// 0 to make slideshows, 1 for those that were made.
    property alias currentTab: tabs.currentIndex

    objectName: "slideshowsScreen"
    Accessible.role: Accessible.Pane
    Accessible.name: qsTr("Slideshows")
    Component.onCompleted: create.setSource("CreateTab.qml", {"context": context, "screen": screen})

    SlideshowsView {
        id: screen
        objectName: "slideshowsView"
        context: root.context
    }
    ScreenTabs {
        id: tabs
        width: parent.width
        titles: [qsTr("Create"), qsTr("History")]
        symbols: ["wand.and.stars", "clock"]
        onCurrentIndexChanged: {
            screen.preview.endEditing()
            if (currentIndex === 1 && history.status === Loader.Null)
                history.setSource(root.historyScreen, {"context": root.context})
        }
    }
    Item {
        anchors.fill: parent
        anchors.topMargin: tabs.height

        Loader {
            id: create
            anchors.fill: parent
            visible: tabs.currentIndex === 0
            focus: visible
        }
        Loader {
            id: history
            anchors.fill: parent
            visible: tabs.currentIndex === 1
            focus: visible
        }
    }
}
