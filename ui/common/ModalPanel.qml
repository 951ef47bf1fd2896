import QtQuick
import QtQuick.Templates as T
import Mosslantern.Common

/// A panel in the middle of the window that must be dealt with first; the Escape key cancels it.
T.Popup {
    id: root

    property bool isClosing: false

    parent: T.Overlay.overlay
    x: parent ? Math.round((parent.width - width) / 2) : 0
    y: parent ? Math.round((parent.height - height) / 2) : 0
    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    margins: 24
    padding: 0
    modal: true
    focus: true
    closePolicy: T.Popup.CloseOnEscape
    // What is fading away takes no more clicks.
    enabled: !isClosing
    onAboutToShow: isClosing = false
    onAboutToHide: isClosing = true

    contentItem: InputLayer {
        covers: root.visible
    }
    background: Rectangle {
        color: Theme.windowBackground
        border.color: Theme.separator
        radius: Theme.sheetRadius
    }
    T.Overlay.modal: Rectangle {
        color: Theme.scrim
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
