pragma ComponentBehavior: Bound

import QtQuick
import Mosslantern.Common
import Mosslantern.App

/// The destinations; a click chooses one, a click or the space bar with the Control key lets go of the chosen one.
Rectangle {
    id: root

    required property ContentView content

    color: Theme.sidebarBackground

    Text {
        id: title
        x: 20
        height: Theme.headerHeight
        text: qsTr("Mosslantern")
        color: Theme.primary
        font.family: Theme.family
        font.pixelSize: Theme.title3
        font.weight: Font.Bold
        verticalAlignment: Text.AlignVCenter
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }

    KeyList {
        id: list
        objectName: "sidebar"
        anchors.fill: parent
        anchors.topMargin: Theme.headerHeight
        anchors.leftMargin: 10
        anchors.rightMargin: 10
        interactive: false
        focus: true
        label: title.text
        model: SidebarView {}
        currentIndex: root.content.selectedIndex
        marksItself: root.content.selectedIndex < 0
        onMoved: (rows) =>
            root.content.selectedIndex = Math.max(0, Math.min(count - 1, root.content.selectedIndex + rows))
        Keys.onSpacePressed: (event) => {
            event.accepted = event.modifiers === Qt.ControlModifier
            if (event.accepted)
                root.content.selectedIndex = -1
        }

        delegate: SidebarRow {
            width: ListView.view.width
            isSelected: index === root.content.selectedIndex
            isFocused: isSelected && list.activeFocus
            onChosen: root.content.selectedIndex = index
            onReleased: root.content.selectedIndex = -1
            onPointed: list.forceActiveFocus(Qt.MouseFocusReason)
        }
    }
}
