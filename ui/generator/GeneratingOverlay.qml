import QtQuick
import Mosslantern.Common

/// Covers the preview while a run is in progress.
Rectangle {
    color: "#b3000000"
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
        color: "#b3000000"
    }
    Column {
        id: column
        anchors.centerIn: parent
        spacing: 16

        Spinner {
            anchors.horizontalCenter: parent.horizontalCenter
            width: 32
            height: 32
            color: "white"
        }
        Text {
            id: label
            text: qsTr("Generating with AI...")
            color: "white"
            font.family: Theme.family
            font.pixelSize: Theme.headline
            font.weight: Font.DemiBold
        }
    }
}
