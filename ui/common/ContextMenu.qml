import QtQuick
import QtQuick.Templates as T
import Mosslantern.Common

T.Menu {
    id: root

    margins: 8
    padding: 5
    overlap: 1
    implicitWidth: 200
    implicitHeight: contentItem.implicitHeight + topPadding + bottomPadding

    delegate: ContextMenuItem {}
    contentItem: ListView {
        implicitHeight: contentHeight
        model: root.contentModel
        interactive: false
        currentIndex: root.currentIndex
    }
    background: Rectangle {
        color: Theme.raisedBackground
        border.color: Theme.separator
        radius: Theme.controlRadius + 2

        InputLayer {
            covers: root.visible
        }
    }
}
