import QtQuick
import Mosslantern.Common

/// Why the user's own key is asked for.
PopoverView {
    contentItem: Column {
        spacing: 8
        Accessible.role: Accessible.ToolTip
        Accessible.name: heading.text

        Text {
            id: heading
            width: 250 - 2 * Theme.padding
            text: qsTr("Why do I need an API Key?")
            color: Theme.primary
            font.family: Theme.family
            font.pixelSize: Theme.headline
            font.weight: Font.DemiBold
            wrapMode: Text.Wrap
        }
        Text {
            width: heading.width
            text: qsTr("To keep subscription costs low, we ask users to provide their own OpenAI API key.")
            color: Theme.primary
            font.family: Theme.family
            font.pixelSize: Theme.caption
            wrapMode: Text.Wrap
        }
        Text {
            width: heading.width
            text: qsTr("You can create a key at %1.").arg('<a href="https://platform.openai.com/api-keys">platform.openai.com/api-keys</a>')
            color: Theme.secondary
            linkColor: Theme.blue
            font.family: Theme.family
            font.pixelSize: Theme.caption
            textFormat: Text.StyledText
            wrapMode: Text.Wrap
            onLinkActivated: (link) => Qt.openUrlExternally(link)

            HoverHandler {
                enabled: parent.hoveredLink !== ""
                cursorShape: Qt.PointingHandCursor
            }
        }
    }
}
