import QtQuick
import QtQuick.Templates as T
import Mosslantern.Common

/// Says what an item does, or all of a text that does not fit; gone as soon as anything is pressed.
T.ToolTip {
    id: root

    function showFor(item: Item, tip: string) {
        parent = item
        text = tip
        visible = true
    }

    x: parent ? Math.round((parent.width - implicitWidth) / 2) : 0
    y: parent ? parent.height + 6 : 0
    implicitWidth: Math.min(implicitContentWidth, 400) + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    margins: 6
    horizontalPadding: 8
    verticalPadding: 5
    delay: 600
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent | T.Popup.CloseOnReleaseOutsideParent

    Connections {
        target: InputMode
        function onPressed() {
            root.close()
        }
    }

    contentItem: Text {
        text: root.text
        color: Theme.primary
        font.family: Theme.family
        font.pixelSize: Theme.caption
        textFormat: Text.PlainText
        wrapMode: Text.Wrap

        EmojiLabel {}
    }
    background: Rectangle {
        color: Theme.raisedBackground
        border.color: Theme.separator
        radius: Theme.controlRadius
    }
}
