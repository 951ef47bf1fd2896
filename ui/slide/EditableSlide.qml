import QtQuick
import Mosslantern.Common
import Mosslantern.Slide

/// A slide whose texts can be dragged, scaled and retyped: its picture, which is given as a child, the two text blocks
/// over it, and its frame.
Item {
    id: root

    required property DraggableTextView mainBlock
    required property DraggableTextView subtitleBlock
    required property bool hasSubtitle
    /// Where the slide stands, in points.
    required property rect frame
    /// The colour behind it.
    required property color backdrop
    property alias shadowStrength: edge.shadowStrength
    readonly property alias content: content
    property alias contentName: content.objectName
    property alias mainTextName: mainText.objectName
    property alias subtitleTextName: subtitleText.objectName
    default property alias picture: picture.data

    /// Whether a click there, in the coordinates of `item`, hits neither text.
    function isBesideTexts(item: Item, position: point): bool {
        const point = content.mapFromItem(item, position.x, position.y)
        return !mainBlock.contains(point) && !(hasSubtitle && subtitleBlock.contains(point))
    }

    CanvasArea {
        id: content
        frame: root.frame
        clip: true

        Item {
            id: picture
            anchors.fill: parent
        }
        TextBlockItem {
            objectName: "mainDrawing"
            anchors.fill: parent
            block: root.mainBlock
        }
        TextBlockItem {
            objectName: "subtitleDrawing"
            anchors.fill: parent
            visible: root.hasSubtitle
            block: root.subtitleBlock
        }
        EditableText {
            id: mainText
            block: root.mainBlock
            label: qsTr("Main Text")
        }
        EditableText {
            id: subtitleText
            visible: root.hasSubtitle
            onVisibleChanged: if (!visible) block.isFocused = false
            block: root.subtitleBlock
            label: qsTr("Subtitle")
        }
    }
    CanvasFrame {
        id: edge
        anchors.fill: content
        visible: content.width > 0
        backdrop: root.backdrop
    }
}
