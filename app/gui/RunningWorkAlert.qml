import QtQuick
import Mosslantern.Common
import Mosslantern.App

/// Asks before the application ends while something is under way. It goes when that has ended.
AlertView {
    id: root

    required property RunningWork work
    readonly property bool isNeeded: work.isExporting || work.isGenerating

    signal quitConfirmed

    title: qsTr("Quit Mosslantern?")
    message: work.isExporting ? qsTr("An export is still running. If you quit now, the remaining slides are not written.")
                              : qsTr("Variations are still being generated. If you quit now, no slideshows are made of them.")
    onIsNeededChanged: {
        if (!isNeeded)
            close()
    }

    buttons: [
        PushButton {
            objectName: "continueWork"
            width: root.buttonWidth
            text: qsTr("Cancel")
            focus: true
            onClicked: root.close()
        },
        PushButton {
            objectName: "quitWork"
            width: root.buttonWidth
            text: qsTr("Quit Anyway")
            isDestructive: true
            onClicked: root.quitConfirmed()
        }
    ]
}
