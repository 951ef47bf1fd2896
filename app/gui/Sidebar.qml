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

    ListView {
        id: list
        objectName: "sidebar"
        anchors.fill: parent
        anchors.topMargin: Theme.headerHeight
        anchors.leftMargin: 10
        anchors.rightMargin: 10
        interactive: false
        focus: true
        activeFocusOnTab: true
        model: SidebarView {}
        currentIndex: root.content.selectedIndex
        highlight: null
        keyNavigationEnabled: false
        Accessible.role: Accessible.List
        Accessible.name: title.text
        Keys.onUpPressed: root.content.selectedIndex = Math.max(0, root.content.selectedIndex - 1)
        Keys.onDownPressed: root.content.selectedIndex = Math.min(count - 1, root.content.selectedIndex + 1)
        Keys.onSpacePressed: (event) => {
            event.accepted = event.modifiers === Qt.ControlModifier
            if (event.accepted)
                root.content.selectedIndex = -1
        }
        Keys.onPressed: (event) => {
            event.accepted = event.key === Qt.Key_Home || event.key === Qt.Key_End
            if (event.accepted)
                root.content.selectedIndex = event.key === Qt.Key_Home ? 0 : count - 1
        }

        FocusRing {
            distance: -3
            visible: list.activeFocus && root.content.selectedIndex < 0 && InputMode.usesKeyboard
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
