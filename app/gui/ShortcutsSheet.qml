pragma ComponentBehavior: Bound

import QtQuick
import Mosslantern.Common
import Mosslantern.App

/// What the keyboard does.
SheetView {
    id: root

    required property list<AppCommand> commands
    readonly property var keys: [
        [qsTr("Go from control to control"), qsTr("Tab")],
        [qsTr("Move in lists and grids"), qsTr("Arrow keys, Home, End, Page Up, Page Down")],
        [qsTr("Let go of the selected row"), qsTr("Ctrl+Space")],
        [qsTr("Delete or remove what is selected"), qsTr("Delete")],
        [qsTr("Open, load or import"), qsTr("Return")],
        [qsTr("Show the menu of an item"), qsTr("Menu, Shift+F10")],
        [qsTr("Open the menu bar"), qsTr("F10")],
        [qsTr("Close a sheet, cancel a question"), qsTr("Escape")]
    ]
    readonly property var lines: keys.concat(Array.from(commands, command => [command.label, command.nativeText]))

    width: 500
    height: Theme.headerHeight + list.height + 2 * list.y + 56
    title: qsTr("Keyboard Shortcuts")

    Column {
        id: list
        x: 20
        y: 14
        width: parent.width - 40

        Repeater {
            model: root.lines

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
