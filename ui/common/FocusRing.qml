import QtQuick
import Mosslantern.Common

/// The mark of what has the keyboard, around its parent.
Rectangle {
    property real distance: 2

    anchors.fill: parent
    anchors.margins: -distance
    color: "transparent"
    border.color: Theme.blue
    border.width: Theme.focusWidth
    radius: Theme.controlRadius + distance
}
