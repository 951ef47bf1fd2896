import QtQuick
import QtQuick.Templates as T
import Mosslantern.Common

/// A scroll bar that is there whenever there is something to scroll.
T.ScrollBar {
    id: root

    implicitWidth: 12
    implicitHeight: 12
    minimumSize: 0.06
    padding: 3
    visible: size < 1
    policy: T.ScrollBar.AsNeeded

    contentItem: RoundedArea {
        implicitWidth: 6
        implicitHeight: 6
        radius: Math.min(width, height) / 2
        color: root.pressed ? Theme.scrollThumbPressed : root.hovered ? Theme.scrollThumbHovered : Theme.scrollThumb
    }
}
