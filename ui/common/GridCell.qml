import QtQuick
import Mosslantern.Common

/// One cell of an AdaptiveGrid: a frame in the middle of its column and below it a caption, if there is one.
Item {
    id: root

    required property AdaptiveGrid grid
    required property int index
    property alias caption: captionText.text
    property alias captionColor: captionText.color
    property alias captionAlignment: captionText.horizontalAlignment
    /// What stands in the frame.
    default property alias content: frame.data

    /// A click on it.
    signal tapped
    /// The Return key on it.
    signal activated
    /// The space bar on it.
    signal spacePressed
    /// A right click on it, or the key for menus.
    signal menuRequested(position: point)

    width: grid.cellWidth
    height: grid.cellHeight

    Connections {
        target: root.GridView.isCurrentItem ? root.grid.keys : null

        function onOpened() { root.activated() }
        function onSpacePressed() { root.spacePressed() }
        function onMenuRequested() { root.menuRequested(frame.mapToItem(root, Qt.point(frame.width / 2, frame.height / 2))) }
    }

    Item {
        x: root.grid.firstFrame
        y: root.grid.ringRoom
        width: root.grid.frameSize
        height: root.grid.rowHeight

        Item {
            id: frame
            width: parent.width
            height: width
        }
        ElidedText {
            id: captionText
            anchors.top: frame.bottom
            anchors.topMargin: Theme.spacing
            width: parent.width
            visible: text !== ""
            font.pixelSize: Theme.caption
        }
        ClickHandler {
            acceptedButtons: Qt.LeftButton | Qt.RightButton
            onTapped: (event, button) => {
                root.grid.point(root.index)
                if (button === Qt.RightButton)
                    root.menuRequested(parent.mapToItem(root, event.position))
                else
                    root.tapped()
            }
        }
    }
}
