import QtQuick

/// What lies behind a bar. What is beneath it can be neither seen nor pointed at.
Rectangle {
    MouseArea {
        anchors.fill: parent
        acceptedButtons: Qt.AllButtons
        hoverEnabled: true
    }
}
