pragma ComponentBehavior: Bound

import QtQuick
import Mosslantern.Common

/// What the keyboard does.
SheetView {
    id: root

    width: 440
    height: 400
    title: qsTr("Keyboard Shortcuts")

    Column {
        x: 20
        y: 14
        width: parent.width - 40

        Repeater {
            model: [
                [qsTr("Go from control to control"), qsTr("Tab")],
                [qsTr("Move in lists and grids"), qsTr("Arrow keys")],
                [qsTr("Delete or remove what is selected"), qsTr("Delete")],
                [qsTr("Open, load or import"), qsTr("Return")],
                [qsTr("Show the menu of an item"), qsTr("Menu, Shift+F10")],
                [qsTr("Close a sheet, cancel a question"), qsTr("Escape")],
                [qsTr("Full screen"), qsTr("F11")],
                [qsTr("Quit"), qsTr("Ctrl+Q")]
            ]

            Item {
                id: line

                required property var modelData

                width: parent ? parent.width : 0
                height: 31

                ElidedText {
                    anchors.verticalCenter: parent.verticalCenter
                    text: line.modelData[0]
                }
                ElidedText {
                    anchors.verticalCenter: parent.verticalCenter
                    anchors.right: parent.right
                    text: line.modelData[1]
                    color: Theme.secondary
                }
            }
        }
    }

    buttons: PushButton {
        objectName: "closeShortcuts"
        text: qsTr("Done")
        focus: true
        onClicked: root.close()
    }
}
