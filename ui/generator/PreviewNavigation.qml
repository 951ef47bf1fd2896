import QtQuick
import Mosslantern.Common
import Mosslantern.Generator

/// Steps from entry to entry.
Rectangle {
    id: root

    required property LivePreview preview

    implicitWidth: row.implicitWidth + 2 * 8
    implicitHeight: row.implicitHeight + 2 * 6
    radius: Theme.tileRadius
    color: Theme.material

    component Step: SymbolButton {
        implicitWidth: 28
        implicitHeight: 28
        symbolSize: Theme.title3 + 3
    }

    Row {
        id: row
        anchors.centerIn: parent
        spacing: 12

        Step {
            objectName: "previousEntry"
            symbol: "chevron.left"
            text: qsTr("Previous Slide")
            enabled: root.preview.index > 0
            onClicked: root.preview.index -= 1
        }
        Rectangle {
            anchors.verticalCenter: parent.verticalCenter
            width: counter.implicitWidth + 2 * 8
            height: counter.implicitHeight + 2 * 4
            radius: Theme.controlRadius
            color: Theme.material

            DigitsText {
                id: counter
                objectName: "entryCounter"
                anchors.centerIn: parent
                text: qsTr("%1 / %2").arg(root.preview.index + 1).arg(root.preview.count)
                color: Theme.overlayText
                fontSize: Theme.caption
            }
        }
        Step {
            objectName: "nextEntry"
            symbol: "chevron.right"
            text: qsTr("Next Slide")
            enabled: root.preview.index < root.preview.count - 1
            onClicked: root.preview.index += 1
        }
    }
}
