import QtQuick
import Mosslantern.Common

/// A question with its answers: a title, a message if there is one, whatever else it asks for, and buttons.
ModalPanel {
    id: root

    required property string title
    property string message
    property alias fields: holder.data
    property alias buttons: row.data
    /// Whether the buttons stand below one another, for long labels.
    property bool stacksButtons: false
    readonly property real buttonWidth: stacksButtons ? availableWidth
        : (availableWidth - (row.children.length - 1) * row.spacing) / Math.max(1, row.children.length)

    width: 300
    padding: 20

    implicitHeight: column.implicitHeight + 2 * padding

    FocusScope {
        anchors.fill: parent
        focus: true
        Accessible.role: Accessible.AlertMessage
        Accessible.name: root.title
        Accessible.description: root.message

        Column {
            id: column
            width: parent.width
            spacing: 16

            Column {
                width: parent.width
                spacing: 6

                Text {
                    width: parent.width
                    text: root.title
                    color: Theme.primary
                    font.family: Theme.family
                    font.pixelSize: Theme.headline
                    font.weight: Font.Bold
                    horizontalAlignment: Text.AlignHCenter
                    wrapMode: Text.Wrap
                    textFormat: Text.PlainText

                    EmojiLabel {}
                }
                Text {
                    width: parent.width
                    visible: root.message !== ""
                    text: root.message
                    color: Theme.secondary
                    font.family: Theme.family
                    font.pixelSize: Theme.body
                    horizontalAlignment: Text.AlignHCenter
                    wrapMode: Text.Wrap
                    textFormat: Text.PlainText

                    EmojiLabel {}
                }
            }
            Column {
                id: holder
                width: parent.width
                visible: children.length > 0
            }
            Grid {
                id: row
                width: parent.width
                columns: root.stacksButtons ? 1 : Math.max(1, row.children.length)
                spacing: Theme.spacing
            }
        }
    }
}
