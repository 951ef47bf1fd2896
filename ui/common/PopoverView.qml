import QtQuick
import QtQuick.Templates as T
import Mosslantern.Common

/// A small panel that points at its parent. A click elsewhere or the Escape key closes it.
T.Popup {
    id: root

    property bool isAbove: false
    readonly property real arrowHeight: 10

    x: parent ? Math.round((parent.width - width) / 2) : 0
    y: !parent ? 0 : isAbove ? -height - arrowHeight : parent.height + arrowHeight
    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    padding: Theme.padding
    focus: true
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutside
    onAboutToShow: {
        const below = parent.mapToItem(T.Overlay.overlay, 0, parent.height).y + arrowHeight + implicitHeight
        isAbove = below > T.Overlay.overlay.height - 8
    }

    background: InputLayer {
        covers: root.visible

        Rectangle {
            x: (parent.width - width) / 2
            y: root.isAbove ? parent.height - height / 2 - 1 : 1 - height / 2
            width: 13
            height: 13
            rotation: 45
            color: Theme.raisedBackground
            border.color: Theme.separator
        }
        Rectangle {
            anchors.fill: parent
            color: Theme.raisedBackground
            border.color: Theme.separator
            radius: Theme.controlRadius + 4
        }
        Rectangle {
            x: (parent.width - width) / 2
            y: root.isAbove ? parent.height - 1 : 0
            width: 16
            height: 1
            color: Theme.raisedBackground
        }
    }
    enter: Transition {
        NumberAnimation {
            property: "opacity"
            from: 0
            to: 1
            duration: Theme.quick
        }
    }
    exit: Transition {
        NumberAnimation {
            property: "opacity"
            to: 0
            duration: Theme.quick
        }
    }
}
