import QtQuick
import Mosslantern.Common

/// The title of a screen and, at its trailing edge, the toolbar.
BarBackground {
    id: root

    required property string title
    default property alias items: toolbar.data

    color: "transparent"
    implicitHeight: Theme.headerHeight

    ElidedText {
        anchors.verticalCenter: parent.verticalCenter
        anchors.left: parent.left
        anchors.leftMargin: Theme.padding + 4
        anchors.right: toolbar.left
        anchors.rightMargin: Theme.padding
        text: root.title
        font.pixelSize: Theme.title3
        font.weight: Font.Bold
        Accessible.role: Accessible.Heading
    }

    Row {
        id: toolbar
        anchors.verticalCenter: parent.verticalCenter
        anchors.right: parent.right
        anchors.rightMargin: Theme.padding
        spacing: Theme.spacing
    }

    Rectangle {
        anchors.bottom: parent.bottom
        width: parent.width
        height: 1
        color: Theme.separator
    }
}
