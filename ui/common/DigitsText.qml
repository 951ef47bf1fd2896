pragma ComponentBehavior: Bound

import QtQuick
import Mosslantern.Common

/// A short text in which every digit is equally wide, so that a number that changes does not move.
Row {
    id: root

    required property string text
    property color color: Theme.primary
    property int fontSize: Theme.body

    Accessible.role: Accessible.StaticText
    Accessible.name: text

    TextMetrics {
        id: widest
        text: "0"
        font.family: Theme.family
        font.pixelSize: root.fontSize
    }
    Repeater {
        model: root.text.length

        Text {
            required property int index

            text: root.text[index] ?? ""
            width: text >= "0" && text <= "9" ? Math.round(widest.advanceWidth) : implicitWidth
            color: root.color
            font: widest.font
            textFormat: Text.PlainText
            horizontalAlignment: Text.AlignHCenter
        }
    }
}
