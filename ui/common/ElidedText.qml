import QtQuick
import Mosslantern.Common

/// One line of text that shows whole in a tool tip where it does not fit.
Text {
    id: root

    /// Whether the tool tip may show.
    property bool showsWhole: true

    color: Theme.primary
    font.family: Theme.family
    font.pixelSize: Theme.body
    elide: Text.ElideRight
    maximumLineCount: 1
    textFormat: Text.PlainText
    Accessible.role: Accessible.StaticText
    Accessible.name: text

    EmojiLabel {}
    HoverHandler {
        id: hover
        enabled: root.truncated && root.showsWhole
    }

    Loader {
        active: hover.hovered && root.truncated && root.showsWhole && root.visible
        source: "ToolTipView.qml"
        onLoaded: (item as ToolTipView).showFor(root, root.text)
    }
}
