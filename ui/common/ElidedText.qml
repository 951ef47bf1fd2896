import QtQuick
import Mosslantern.Common

/// One line of text that shows whole in a tool tip where it does not fit.
Text {
    id: root

    color: Theme.primary
    font.family: Theme.family
    font.pixelSize: Theme.body
    elide: Text.ElideRight
    maximumLineCount: 1
    textFormat: Text.PlainText
    Accessible.role: Accessible.StaticText
    Accessible.name: text

    HoverHandler {
        id: hover
        enabled: root.truncated
    }

    Loader {
        active: hover.hovered && root.truncated
        source: "ToolTipView.qml"
        onLoaded: (item as ToolTipView).showFor(root, root.text)
    }
}
