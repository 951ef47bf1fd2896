import QtQuick
import QtQuick.Templates as T
import Mosslantern.Common

/// The dashed tile after the last asset.
T.AbstractButton {
    id: root

    objectName: "addTile"
    focusPolicy: Qt.NoFocus
    text: qsTr("Import Images")
    Accessible.ignored: true

    contentItem: Item {
        Symbol {
            anchors.centerIn: parent
            name: "plus"
            size: Theme.largeTitle
            color: root.hovered ? Theme.primary : Theme.secondary
        }
    }
    background: RoundedArea {
        radius: Theme.tileRadius
        color: root.pressed ? Theme.pressed : root.hovered ? Theme.hovered : "transparent"
        borderColor: root.hovered ? Theme.primary : Theme.secondary
        borderWidth: 2
        dashes: [5, 5]
    }

    ToolTipView {
        text: root.text
        visible: root.hovered
    }
}
