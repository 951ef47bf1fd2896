import QtQuick
import QtQuick.Templates as T
import Mosslantern.Common

/// The line between two panes, wider to the pointer than to the eye.
Rectangle {
    id: root

    implicitWidth: 1
    implicitHeight: 1
    color: T.SplitHandle.pressed ? Theme.accent : Theme.separator
    containmentMask: Item {
        x: -3
        y: -3
        width: root.width + 6
        height: root.height + 6
    }
}
