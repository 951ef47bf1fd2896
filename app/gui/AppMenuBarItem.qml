import QtQuick
import QtQuick.Templates as T
import Mosslantern.Common

T.MenuBarItem {
    id: root

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: 30
    horizontalPadding: 10
    Accessible.role: Accessible.MenuItem
    Accessible.name: text.replace("&", "")

    contentItem: Text {
        text: root.text.replace("&", "")
        color: Theme.primary
        font.family: Theme.family
        font.pixelSize: Theme.body
        font.weight: root.menu && root.menu.title === "&Mosslantern" ? Font.DemiBold : Font.Normal
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
