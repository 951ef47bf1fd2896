import QtQuick
import QtQuick.Templates as T
import Mosslantern.Common
import Mosslantern.Update

/// What the updater has to say.
Window {
    id: root

    required property SPUUpdater updater
    readonly property bool hasUpdate: updater.status === SPUUpdater.UpdateFound
    readonly property bool isChecking: updater.status === SPUUpdater.Checking
    readonly property string heading: {
        switch (updater.status) {
        case SPUUpdater.Checking:
            return qsTr("Checking for updates…")
        case SPUUpdater.UpdateFound:
            return qsTr("A new version of Mosslantern is available")
        case SPUUpdater.UpToDate:
            return qsTr("Mosslantern is up to date")
        case SPUUpdater.Failed:
            return qsTr("The update check failed")
        }
        return ""
    }
    readonly property string details: {
        switch (updater.status) {
        case SPUUpdater.UpdateFound:
            return qsTr("Version %1 can be downloaded. You have %2.").arg(updater.newVersion).arg(updater.currentVersion)
        case SPUUpdater.UpToDate:
            return qsTr("Version %1 is the newest there is.").arg(updater.currentVersion)
        case SPUUpdater.Failed:
            return updater.message
        }
        return ""
    }

    width: 460
    height: hasUpdate && updater.notes !== "" ? 360 : 140
    minimumWidth: 380
    minimumHeight: 140
    flags: Qt.Dialog
    title: qsTr("Software Update")
    color: Theme.windowBackground
    visible: updater.isShown
    onClosing: updater.dismiss()

    Item {
        anchors.fill: parent
        anchors.margins: 20
        focus: true
        Keys.onEscapePressed: root.updater.dismiss()

        Spinner {
            id: spinner
            visible: root.isChecking
            anchors.right: parent.right
        }
        Text {
            id: heading
            objectName: "updateHeading"
            width: parent.width - 40
            text: root.heading
            color: Theme.primary
            font.family: Theme.family
            font.pixelSize: Theme.title3
            font.weight: Font.Bold
            wrapMode: Text.Wrap
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }
        Text {
            id: details
            anchors.top: heading.bottom
            anchors.topMargin: 6
            width: parent.width
            text: root.details
            color: Theme.secondary
            font.family: Theme.family
            font.pixelSize: Theme.body
            wrapMode: Text.Wrap
            textFormat: Text.PlainText
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
        Flickable {
            id: notes
            anchors.top: details.bottom
            anchors.topMargin: 14
            anchors.bottom: buttons.top
            anchors.bottomMargin: 16
            width: parent.width
            visible: root.hasUpdate && root.updater.notes !== ""
            contentHeight: notesText.height
            clip: true
            boundsBehavior: Flickable.StopAtBounds
            T.ScrollBar.vertical: ScrollIndicatorBar {}

            Rectangle {
                width: notes.width
                height: Math.max(notes.height, notesText.height)
                color: Theme.textBackground
                border.color: Theme.separator
                radius: Theme.controlRadius
            }
            Text {
                id: notesText
                width: notes.width
                padding: 12
                text: root.updater.notes
                color: Theme.primary
                font.family: Theme.family
                font.pixelSize: Theme.body
                wrapMode: Text.Wrap
                textFormat: Text.PlainText
                Accessible.role: Accessible.StaticText
                Accessible.name: text
            }
        }
        Row {
            id: buttons
            anchors.bottom: parent.bottom
            anchors.right: parent.right
            spacing: Theme.spacing

            PushButton {
                objectName: "openReleaseNotes"
                visible: root.hasUpdate && root.updater.notes === "" && root.updater.hasNotesPage
                text: qsTr("Release Notes")
                onClicked: root.updater.openReleaseNotes()
            }
            PushButton {
                objectName: "dismissUpdate"
                text: root.hasUpdate ? qsTr("Not Now") : root.isChecking ? qsTr("Hide") : qsTr("OK")
                isProminent: !root.hasUpdate && !root.isChecking
                focus: true
                onClicked: root.updater.dismiss()
            }
            PushButton {
                objectName: "openDownloadPage"
                visible: root.hasUpdate
                text: qsTr("Open Download Page")
                isProminent: true
                onClicked: root.updater.openDownloadPage()
            }
        }
    }
}
