import QtQuick
import Mosslantern.Common
import Mosslantern.Editor

/// Asks for the name of a new preset.
ModalPanel {
    id: root

    required property SlideInspectorView inspector

    width: 300
    height: 150
    padding: 24
    visible: inspector.showingSaveDialog
    onClosed: inspector.showingSaveDialog = false
    onOpened: {
        name.forceActiveFocus(Qt.OtherFocusReason)
        name.selectAll()
    }

    Column {
        anchors.centerIn: parent
        spacing: Theme.widePadding

        Text {
            anchors.horizontalCenter: parent.horizontalCenter
            text: qsTr("Save Preset")
            color: Theme.primary
            font.family: Theme.family
            font.pixelSize: Theme.headline
            font.weight: Font.Bold
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }
        TextInputField {
            id: name
            objectName: "presetName"
            width: 250
            placeholder: qsTr("Preset Name")
            text: root.inspector.newPresetName
            onTextEdited: (text) => root.inspector.newPresetName = text
            onAccepted: if (save.enabled) save.clicked()
        }
        Row {
            anchors.horizontalCenter: parent.horizontalCenter
            spacing: Theme.wideSpacing

            PushButton {
                objectName: "cancelPreset"
                text: qsTr("Cancel")
                onClicked: root.inspector.showingSaveDialog = false
            }
            PushButton {
                id: save
                objectName: "confirmPreset"
                text: qsTr("Save")
                isProminent: true
                enabled: root.inspector.canSave
                onClicked: {
                    root.inspector.savePreset()
                    root.inspector.showingSaveDialog = false
                }
            }
        }
    }
}
