import QtQuick
import Mosslantern.Common
import Mosslantern.Generator

/// The selected template and, below it, what can be done with the library.
FocusScope {
    id: root

    required property ContentLibraryView library
    readonly property ContentTemplate shown: library.selectedTemplate

    ContentUnavailableView {
        anchors.fill: details
        visible: root.shown === null
        symbol: "arrow.left"
        title: qsTr("Select a Template")
        description: qsTr("Select a template to view details or load it.")
    }
    TemplateDetails {
        id: details
        anchors.top: parent.top
        anchors.bottom: bar.top
        width: parent.width
        visible: root.shown !== null
        shown: root.shown
    }
    Item {
        id: bar
        anchors.bottom: parent.bottom
        width: parent.width
        height: Theme.controlHeight + 2 * 16

        Rectangle {
            width: parent.width
            height: 1
            color: Theme.separator
        }
        Row {
            x: 16
            anchors.verticalCenter: parent.verticalCenter
            spacing: 16

            // Its place is kept, so that it never appears under a pointer that is on another button.
            Item {
                width: deletion.width
                height: deletion.height

                PushButton {
                    id: deletion
                    objectName: "deleteTemplate"
                    visible: root.shown !== null
                    text: qsTr("Delete")
                    symbol: "trash"
                    isDestructive: true
                    onClicked: root.library.showingDeleteConfirmation = true
                }
            }
            PushButton {
                objectName: "createNewTemplate"
                text: qsTr("Create New")
                symbol: "plus"
                onClicked: root.library.createNew()
            }
            PushButton {
                objectName: "saveCurrentTemplate"
                text: qsTr("Save Current")
                symbol: "square.and.arrow.down"
                onClicked: root.library.saveCurrent()
            }
            PushButton {
                objectName: "loadTemplate"
                visible: root.shown !== null
                text: qsTr("Load Template")
                symbol: "arrow.down.circle.fill"
                isProminent: true
                onClicked: root.library.loadTemplate()
            }
        }
    }
}
