pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Mosslantern.Common
import Mosslantern.Library

/// The saved templates, newest first.
FocusScope {
    id: root

    required property ContentLibraryView library

    // The sheet's rounded corner lies at the bottom left.
    Rectangle {
        anchors.fill: parent
        anchors.leftMargin: 1
        anchors.bottomMargin: 1
        color: Theme.controlBackground
        radius: Theme.sheetRadius - 1
    }
    Rectangle {
        anchors.fill: parent
        anchors.leftMargin: 1
        anchors.bottomMargin: Theme.sheetRadius
        color: Theme.controlBackground
    }
    Rectangle {
        anchors.fill: parent
        anchors.leftMargin: Theme.sheetRadius
        anchors.bottomMargin: 1
        color: Theme.controlBackground
    }
    ContentUnavailableView {
        anchors.fill: parent
        visible: list.count === 0
        symbol: "doc.text"
        title: qsTr("No Templates")
        description: qsTr("Save your JSON content to reuse later")
    }
    ListView {
        id: list
        objectName: "templateList"
        anchors.fill: parent
        topMargin: 8
        bottomMargin: 8
        visible: count > 0
        clip: true
        focus: true
        activeFocusOnTab: true
        reuseItems: true
        boundsBehavior: Flickable.StopAtBounds
        keyNavigationEnabled: false
        model: root.library.templates
        currentIndex: -1
        Accessible.role: Accessible.List
        Accessible.name: qsTr("Templates")

        Keys.onUpPressed: moveSelection(-1)
        Keys.onDownPressed: moveSelection(1)
        Keys.onReturnPressed: root.library.loadTemplate()
        Keys.onEnterPressed: root.library.loadTemplate()
        Keys.onDeletePressed: askToDelete()
        Keys.onPressed: (event) => {
            if (event.key !== Qt.Key_Backspace)
                return
            askToDelete()
            event.accepted = true
        }

        function moveSelection(by: int) {
            root.library.moveSelection(by)
            positionViewAtIndex(root.library.rowOf(root.library.selectedTemplate), ListView.Contain)
        }
        function askToDelete() {
            if (root.library.selectedTemplate)
                root.library.showingDeleteConfirmation = true
        }

        T.ScrollBar.vertical: ScrollIndicatorBar {}

        delegate: TemplateRow {
            width: list.width
            isSelected: record === root.library.selectedTemplate
            isFocused: list.activeFocus
            onChosen: {
                list.forceActiveFocus(Qt.MouseFocusReason)
                root.library.selectedTemplate = record
            }
        }
    }
    FocusRing {
        distance: -3
        visible: list.activeFocus && list.visible && root.library.selectedTemplate === null
    }
}
