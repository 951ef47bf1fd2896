import QtQuick
import Mosslantern.Common
import Mosslantern.App

/// Shown instead of the main window when the application cannot begin its work.
Window {
    id: root

    required property string heading
    required property string message
    /// The file that it is about; empty for none.
    required property string file
    /// The folder to look for it; empty for none.
    required property url folder
    /// What can be done about a damaged library; null for other failures.
    required property LibraryRecoveryView recovery
    property real tallest: 0
    readonly property bool isRecovered: recovery !== null && recovery.outcome !== ""

    width: recovery ? 600 : 480
    // Does not shrink again: window managers take that badly.
    height: tallest
    minimumWidth: width
    minimumHeight: height
    maximumWidth: width
    title: qsTr("Mosslantern")
    color: Theme.windowBackground
    visible: true

    ThemedPanels {}
    Shortcut {
        sequences: ["Escape", "Ctrl+Q"]
        onActivated: root.close()
    }

    Symbol {
        id: icon
        x: 24
        y: 24
        name: root.isRecovered ? "checkmark.circle.fill" : "exclamationmark.triangle.fill"
        size: 40
        color: root.isRecovered ? Theme.green : Theme.lantern
    }
    Column {
        id: column
        y: 24
        onHeightChanged: root.tallest = Math.max(root.tallest, height + 2 * y)
        anchors.left: icon.right
        anchors.leftMargin: 16
        anchors.right: parent.right
        anchors.rightMargin: 24
        spacing: 10

        Text {
            objectName: "failureHeading"
            width: parent.width
            text: root.isRecovered ? qsTr("The library can be opened again") : root.heading
            color: Theme.primary
            font.family: Theme.family
            font.pixelSize: Theme.title3
            font.weight: Font.Bold
            wrapMode: Text.Wrap
            textFormat: Text.PlainText
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }
        TextEdit {
            objectName: "failureMessage"
            width: parent.width
            text: root.isRecovered ? root.recovery.outcome : root.message
            color: Theme.secondary
            selectionColor: Theme.accent
            font.family: Theme.family
            font.pixelSize: Theme.body
            wrapMode: TextEdit.Wrap
            textFormat: TextEdit.PlainText
            readOnly: true
            selectByMouse: true
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
        TextEdit {
            width: parent.width
            visible: root.file !== "" && !root.message.includes(root.file)
            text: root.file
            color: Theme.primary
            selectionColor: Theme.accent
            font.family: Theme.monospaced
            font.pixelSize: Theme.caption
            wrapMode: TextEdit.WrapAnywhere
            textFormat: TextEdit.PlainText
            readOnly: true
            selectByMouse: true
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
        Text {
            objectName: "recoveryHint"
            width: parent.width
            visible: root.recovery !== null && !root.isRecovered
            text: !root.recovery ? ""
                : root.recovery.copy !== ""
                  ? qsTr("You can go on with %1, or with all that can still be read. The damaged file is kept as it is, under another name.").arg(root.recovery.copy)
                  : qsTr("There is no whole copy of it, but you can go on with all that can still be read. The damaged file is kept as it is, under another name.")
            color: Theme.primary
            font.family: Theme.family
            font.pixelSize: Theme.body
            wrapMode: Text.Wrap
            textFormat: Text.PlainText
        }
        Text {
            objectName: "recoveryProblem"
            width: parent.width
            visible: text !== ""
            text: root.recovery ? root.recovery.problem : ""
            color: Theme.red
            font.family: Theme.family
            font.pixelSize: Theme.body
            wrapMode: Text.Wrap
            textFormat: Text.PlainText
            Accessible.role: Accessible.AlertMessage
            Accessible.name: text
        }
        Item {
            width: 1
            height: 4
        }
        Row {
            anchors.right: parent.right
            spacing: Theme.spacing

            PushButton {
                objectName: "openFolder"
                visible: String(root.folder) !== ""
                text: qsTr("Open Folder")
                onClicked: Qt.openUrlExternally(root.folder)
            }
            PushButton {
                objectName: "quitAfterFailure"
                text: qsTr("Quit")
                isProminent: root.recovery === null
                focus: root.recovery === null
                onClicked: root.close()
            }
            PushButton {
                objectName: "rescueLibrary"
                visible: root.recovery !== null && !root.isRecovered
                text: qsTr("Keep What Can Be Read")
                isProminent: visible && root.recovery.copy === ""
                focus: isProminent
                onClicked: root.recovery.rescue()
            }
            PushButton {
                objectName: "useCopy"
                visible: root.recovery !== null && !root.isRecovered && root.recovery.copy !== ""
                text: qsTr("Use the Copy")
                isProminent: true
                focus: visible
                onClicked: root.recovery.useCopy()
            }
            PushButton {
                objectName: "openRecovered"
                visible: root.isRecovered
                text: qsTr("Open Library")
                isProminent: true
                focus: visible
                onClicked: root.recovery.openRequested()
            }
        }
    }
}
