import QtQuick
import Mosslantern.Common
import Mosslantern.Generator

/// Asks for the name of a new template and, when it is to be written by hand, for its text.
ModalPanel {
    id: root

    required property ContentLibraryView library
    readonly property bool createsNew: library.isCreatingNew
    /// What the fixed height leaves for the field and for the buttons.
    readonly property real controlHeight: (availableHeight - title.height - (createsNew ? content.height + 3 * column.spacing : 2 * column.spacing)) / 2

    width: createsNew ? 450 : 300
    height: createsNew ? 400 : 150
    padding: 24
    visible: library.showingSaveDialog
    onClosed: library.showingSaveDialog = false
    onOpened: name.forceActiveFocus()

    FocusScope {
        anchors.fill: parent
        focus: true
        Accessible.role: Accessible.Dialog
        Accessible.name: title.text
        Keys.onReturnPressed: if (root.library.canSave) root.library.saveTemplate()
        Keys.onEnterPressed: if (root.library.canSave) root.library.saveTemplate()

        Column {
            id: column
            anchors.centerIn: parent
            spacing: 20

            Text {
                id: title
                anchors.horizontalCenter: parent.horizontalCenter
                text: root.createsNew ? qsTr("Create New Template") : qsTr("Save Content Template")
                color: Theme.primary
                font.family: Theme.family
                font.pixelSize: Theme.headline
                font.weight: Font.DemiBold
            }
            TextInputField {
                id: name
                objectName: "templateName"
                anchors.horizontalCenter: parent.horizontalCenter
                width: root.createsNew ? 400 : 250
                height: root.controlHeight
                placeholder: qsTr("Template Name")
                text: root.library.newTemplateName
                onTextEdited: (text) => root.library.newTemplateName = text
                onAccepted: if (root.library.canSave) root.library.saveTemplate()
            }
            Column {
                id: content
                visible: root.createsNew
                spacing: 4

                ElidedText {
                    text: qsTr("Content")
                    color: Theme.secondary
                    font.pixelSize: Theme.caption
                }
                TextEditor {
                    objectName: "newTemplateContent"
                    label: qsTr("Content")
                    width: 400
                    height: 200
                    color: Theme.controlBackground
                    pasteLimit: 200000
                    font.family: Theme.monospaced
                    text: root.library.newTemplateContent
                    onTextEdited: (text) => root.library.newTemplateContent = text
                }
            }
            Row {
                anchors.horizontalCenter: parent.horizontalCenter
                spacing: 12

                PushButton {
                    objectName: "cancelSaveTemplate"
                    height: root.controlHeight
                    text: qsTr("Cancel")
                    onClicked: root.library.showingSaveDialog = false
                }
                PushButton {
                    objectName: "saveTemplate"
                    height: root.controlHeight
                    text: qsTr("Save")
                    isProminent: true
                    enabled: root.library.canSave
                    onClicked: root.library.saveTemplate()
                }
            }
        }
    }
}
