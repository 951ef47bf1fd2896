import QtQuick
import Mosslantern.Common
import Mosslantern.App

/// Asks before the application ends with changes that are not on the disk.
AlertView {
    id: root

    required property SaveStatus status

    signal quitConfirmed

    title: qsTr("Your last changes cannot be saved")
    message: qsTr("%1. If you quit now, they are lost.").arg(status.error)

    buttons: [
        PushButton {
            objectName: "cancelQuit"
            width: root.buttonWidth
            text: qsTr("Cancel")
            focus: true
            onClicked: root.close()
        },
        PushButton {
            objectName: "quitUnsaved"
            width: root.buttonWidth
            text: qsTr("Quit Anyway")
            isDestructive: true
            onClicked: root.quitConfirmed()
        }
    ]
}
