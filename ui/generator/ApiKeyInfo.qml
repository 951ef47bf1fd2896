import QtQuick
import Mosslantern.Common

/// Why the user's own key is asked for.
PopoverView {
    id: root

    readonly property real textWidth: 250 - 2 * Theme.padding
    readonly property string heading: qsTr("Why do I need an API Key?")

    contentItem: Column {
        spacing: 8
        Accessible.role: Accessible.ToolTip
        Accessible.name: root.heading

        Text {
            width: root.textWidth
            text: root.heading
            color: Theme.primary
            font.family: Theme.family
            font.pixelSize: Theme.headline
            font.weight: Font.DemiBold
            wrapMode: Text.Wrap
        }
        Text {
            width: root.textWidth
            text: qsTr("To keep subscription costs low, we ask users to provide their own OpenAI API key.")
            color: Theme.primary
            font.family: Theme.family
            font.pixelSize: Theme.caption
            wrapMode: Text.Wrap
        }
        Text {
            width: root.textWidth
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
