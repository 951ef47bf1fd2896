import QtQuick
import Mosslantern.Common

/// A panel over the window with a title, its content and, at the bottom, the buttons that end it.
ModalPanel {
    id: root

    required property string title
    default property alias content: body.data
    property alias buttons: row.data
    property alias headerItems: header.data

    FocusScope {
        anchors.fill: parent
        focus: true
        Accessible.role: Accessible.Dialog
        Accessible.name: root.title

        ElidedText {
            x: 20
            width: header.x - x - Theme.padding
            height: Theme.headerHeight
            text: root.title
            font.pixelSize: Theme.title3
            font.weight: Font.Bold
            verticalAlignment: Text.AlignVCenter
            Accessible.role: Accessible.Heading
        }
        Row {
            id: header
            anchors.right: parent.right
            anchors.rightMargin: Theme.padding
            height: Theme.headerHeight
            topPadding: (Theme.headerHeight - Theme.controlHeight) / 2
            spacing: Theme.spacing
        }
        Rectangle {
            y: Theme.headerHeight - 1
            width: parent.width
            height: 1
            color: Theme.separator
        }
        Item {
            id: body
            anchors.fill: parent
            anchors.topMargin: Theme.headerHeight
            anchors.bottomMargin: bar.height
        }
        Item {
            id: bar
            anchors.bottom: parent.bottom
            width: parent.width
            height: row.children.length > 0 ? 56 : 0

            Rectangle {
                width: parent.width
                height: 1
                visible: parent.height > 0
                color: Theme.separator
            }
            Row {
                id: row
                anchors.verticalCenter: parent.verticalCenter
                anchors.right: parent.right
                anchors.rightMargin: Theme.padding
                spacing: Theme.spacing
            }
        }
    }
}
