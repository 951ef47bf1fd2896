import QtQuick
import Mosslantern.Common

/// Covers the preview while a run is in progress.
Rectangle {
    color: Theme.deepScrim
    Accessible.role: Accessible.AlertMessage
    Accessible.name: label.text

    // What lies below is not to be reached.
    MouseArea {
        anchors.fill: parent
        hoverEnabled: true
        onWheel: (event) => event.accepted = true
    }
    // The texts of the preview shine through what covers them.
    RoundedArea {
        anchors.centerIn: parent
        width: column.width + 2 * 28
        height: column.height + 2 * 24
        radius: Theme.sheetRadius
        color: Theme.deepScrim
    }
    Column {
        id: column
        anchors.centerIn: parent
        spacing: 16

        Spinner {
            anchors.horizontalCenter: parent.horizontalCenter
            width: 32
            height: 32
            color: Theme.overlayText
        }
        Text {
            id: label
            text: qsTr("Generating with AI...")
            color: Theme.overlayText
            font.family: Theme.family
            font.pixelSize: Theme.headline
            font.weight: Font.DemiBold
        }
    }
}
