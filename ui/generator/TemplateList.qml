pragma ComponentBehavior: Bound

import QtQuick
import Mosslantern.Common
import Mosslantern.Generator

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
    RecordList {
        id: list
        objectName: "templateList"
        anchors.fill: parent
        visible: count > 0
        label: qsTr("Templates")
        model: root.library.templates
        selection: root.library.selection
        hasSelection: root.library.selectedTemplate !== null
        onRemovalRequested: root.library.showingDeleteConfirmation = true
        onActivated: root.library.loadTemplate()

        delegate: TemplateRow {
            width: list.width
            isSelected: record === root.library.selectedTemplate
            isFocused: list.activeFocus
            onChosen: {
                list.forceActiveFocus(Qt.MouseFocusReason)
                root.library.selectedTemplate = record
            }
            onLetGo: root.library.selection.letGo()
        }
    }
}
