import QtQuick
import QtQuick.Templates as T
import Mosslantern.Common

T.MenuBarItem {
    id: root

    readonly property string name: text.replace("&", "")
    property bool isBold: false

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: 30
    horizontalPadding: 10
    Accessible.role: Accessible.MenuItem
    Accessible.name: name
    Accessible.onPressAction: root.triggered()

    // A menu bar remains ready to open its menus when a key closes one while the pointer is on the bar, and the next
    // click then seems to do nothing. It lets go of items that are disabled.
    Connections {
        target: root.menu
        function onAboutToHide() {
            root.enabled = !InputMode.usesKeyboard
        }
        function onClosed() {
            root.enabled = true
        }
    }

    contentItem: Text {
        text: root.name
        color: Theme.primary
        font.family: Theme.family
        font.pixelSize: Theme.body
        font.weight: root.isBold ? Font.DemiBold : Font.Normal
        verticalAlignment: Text.AlignVCenter
    }
    background: Item {
        Rectangle {
            anchors.fill: parent
            anchors.topMargin: 3
            anchors.bottomMargin: 4
            radius: Theme.controlRadius - 1
            color: root.highlighted ? Theme.selected : root.hovered ? Theme.hovered : "transparent"
        }
    }
}
