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

    width: 480
    height: column.height + 2 * 24
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
        name: "exclamationmark.triangle.fill"
        size: 40
        color: Theme.lantern
    }
    Column {
        id: column
        y: 24
        anchors.left: icon.right
        anchors.leftMargin: 16
        anchors.right: parent.right
        anchors.rightMargin: 24
        spacing: 10

        Text {
            objectName: "failureHeading"
            width: parent.width
            text: root.heading
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
            text: root.message
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
                isProminent: true
                focus: true
                onClicked: root.close()
            }
        }
    }
}
