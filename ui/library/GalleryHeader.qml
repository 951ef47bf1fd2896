import QtQuick
import Mosslantern.Common

/// The name of a batch, and what can be done with it.
Item {
    id: root

    required property string name
    required property int count

    signal exportRequested(button: Item)
    signal deletionRequested

    objectName: "galleryHeader"
    Accessible.role: Accessible.Heading
    Accessible.name: name
    Accessible.description: items.text

    ElidedText {
        objectName: "batchName"
        anchors.left: parent.left
        anchors.right: items.left
        anchors.rightMargin: Theme.padding
        anchors.verticalCenter: parent.verticalCenter
        text: root.name
        font.pixelSize: Theme.title2
        font.weight: Font.Bold
    }
    Text {
        id: items
        objectName: "batchCount"
        anchors.right: exportButton.left
        anchors.rightMargin: Theme.spacing + 4
        anchors.verticalCenter: parent.verticalCenter
        text: qsTr("%1 items").arg(root.count)
        color: Theme.secondary
        font.family: Theme.family
        font.pixelSize: Theme.body
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }
    SmallButton {
        id: exportButton
        objectName: "exportBatch"
        anchors.right: deleteButton.left
        anchors.rightMargin: Theme.spacing
        anchors.verticalCenter: parent.verticalCenter
        text: qsTr("Export Batch")
        symbol: "square.and.arrow.up"
        Accessible.description: root.name
        onClicked: root.exportRequested(exportButton)
    }
    SmallButton {
        id: deleteButton
        objectName: "deleteBatch"
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        label: qsTr("Delete")
        symbol: "trash"
        isDestructive: true
        Accessible.description: root.name
        onClicked: root.deletionRequested()
    }
}
