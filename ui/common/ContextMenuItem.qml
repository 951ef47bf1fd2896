import QtQuick
import QtQuick.Templates as T
import Mosslantern.Common

T.MenuItem {
    id: root

    property string symbol
    property bool isDestructive: false
    /// The keys that do the same, for people.
    property string shortcutText
    readonly property color contentColor: !enabled ? Theme.disabled
        : highlighted ? Theme.accentText : isDestructive ? Theme.red : Theme.primary

    implicitWidth: 200
    implicitHeight: visible ? 26 : 0
    leftPadding: 9
    rightPadding: 9
    Accessible.role: Accessible.MenuItem
    Accessible.name: text
    Accessible.onPressAction: root.triggered()

    contentItem: Item {
        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            visible: root.symbol !== ""
            name: root.symbol
            size: Theme.symbol
            color: root.contentColor
        }
        Text {
            x: root.symbol !== "" ? 22 : 0
            anchors.verticalCenter: parent.verticalCenter
            text: root.text
            color: root.contentColor
            font.family: Theme.family
            font.pixelSize: Theme.body
            textFormat: Text.PlainText
        }
        Text {
            anchors.verticalCenter: parent.verticalCenter
            anchors.right: parent.right
            text: root.shortcutText
            color: !root.enabled ? Theme.disabled : root.highlighted ? Theme.accentText : Theme.secondary
            font.family: Theme.family
            font.pixelSize: Theme.body
        }
    }
    background: Rectangle {
        color: !root.highlighted || !root.enabled ? "transparent" : root.isDestructive ? Theme.destructive : Theme.accent
        radius: Theme.controlRadius - 1
    }
}
