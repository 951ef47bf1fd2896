import QtQuick
import Mosslantern.Common
import Mosslantern.Library

AlertView {
    id: root

    required property CollectionsView collections

    title: qsTr("New Collection")
    visible: collections.isCreatingCollection
    onClosed: collections.cancelCreation()
    onOpened: name.forceActiveFocus()

    fields: TextInputField {
        id: name
        objectName: "newCollectionName"
        width: parent.width
        placeholder: qsTr("Name")
        text: root.collections.newCollectionName
        onTextEdited: (text) => root.collections.newCollectionName = text
        onAccepted: root.collections.createCollection()
    }
    buttons: [
        PushButton {
            objectName: "cancelNewCollection"
            width: root.buttonWidth
            text: qsTr("Cancel")
            onClicked: root.collections.cancelCreation()
        },
        PushButton {
            objectName: "createCollection"
            width: root.buttonWidth
            text: qsTr("Create")
            isProminent: true
            onClicked: root.collections.createCollection()
        }
    ]
}
