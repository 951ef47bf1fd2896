import QtQuick
import Mosslantern.Common
import Mosslantern.App

/// Says that the last changes are not on the disk, as long as they are not, or that none will ever be.
BarBackground {
    id: root

    required property SaveStatus status

    readonly property bool isReadOnly: status.readOnlyReason !== ""

    visible: isReadOnly || status.error !== ""
    implicitHeight: visible ? Math.max(message.implicitHeight + 2 * 9, Theme.headerHeight) : 0
    color: Theme.raisedBackground
    Accessible.role: Accessible.AlertMessage
    Accessible.name: message.text

    Rectangle {
        width: parent.width
        height: 1
        color: Theme.separator
    }
    Symbol {
        x: Theme.padding + 4
        anchors.verticalCenter: parent.verticalCenter
        name: "exclamationmark.triangle.fill"
        size: 18
        color: Theme.orange
    }
    Text {
        id: message
        objectName: "saveError"
        x: 2 * Theme.padding + 22
        width: parent.width - x - Theme.padding
        anchors.verticalCenter: parent.verticalCenter
        text: root.isReadOnly
              ? qsTr("This library can only be looked at and exported: %1. Changes are not saved.").arg(root.status.readOnlyReason)
              : qsTr("%1. Mosslantern keeps your changes and tries again.").arg(root.status.error)
        color: Theme.primary
        font.family: Theme.family
        font.pixelSize: Theme.body
        textFormat: Text.PlainText
        wrapMode: Text.Wrap
    }
}
