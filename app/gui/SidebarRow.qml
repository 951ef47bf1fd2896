import QtQuick
import Mosslantern.Common

/// A destination and, before the first one of a section, the section's heading.
Item {
    id: root

    required property int index
    /// Empty for none.
    required property string heading
    required property string label
    required property string symbol
    required property bool isSelected
    /// Whether it is selected in a sidebar that has the keyboard.
    required property bool isFocused

    signal chosen
    /// Its selection is to end.
    signal released
    /// A pointer was used on it.
    signal pointed

    implicitHeight: 32 + title.height
    Accessible.role: Accessible.ListItem
    Accessible.name: label
    Accessible.selectable: true
    Accessible.selected: isSelected
    Accessible.onPressAction: chosen()

    Text {
        id: title
        width: parent.width
        height: root.heading !== "" ? (root.index === 0 ? 24 : 36) : 0
        visible: height > 0
        leftPadding: 10
        bottomPadding: 5
        text: root.heading
        color: Theme.secondary
        font.family: Theme.family
        font.pixelSize: Theme.caption
        font.weight: Font.DemiBold
        verticalAlignment: Text.AlignBottom
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }
    RowBackground {
        id: row
        objectName: "sidebarRow" + root.index
        anchors.fill: parent
        anchors.topMargin: title.height + 1
        anchors.bottomMargin: 1
        isSelected: root.isSelected
        isFocused: root.isFocused
        isHovered: hover.hovered

        Symbol {
            id: icon
            x: 10
            anchors.verticalCenter: parent.verticalCenter
            name: root.symbol
            size: 17
            color: root.isFocused ? Theme.accentText : Theme.blue
        }
        ElidedText {
            anchors.left: icon.right
            anchors.leftMargin: 9
            anchors.right: parent.right
            anchors.rightMargin: 8
            anchors.verticalCenter: parent.verticalCenter
            text: root.label
            color: root.isFocused ? Theme.accentText : Theme.primary
        }
        HoverHandler {
            id: hover
        }
        ClickHandler {
            acceptedModifiers: Qt.NoModifier
            onTapped: {
                root.pointed()
                root.chosen()
            }
        }
        ClickHandler {
            acceptedModifiers: Qt.ControlModifier
            onTapped: {
                root.pointed()
                if (root.isSelected)
                    root.released()
                else
                    root.chosen()
            }
        }
    }
}
