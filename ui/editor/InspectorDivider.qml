import QtQuick

Rectangle {
    implicitHeight: 1
    color: "#1affffff"
}
