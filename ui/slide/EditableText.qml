import QtQuick
import Mosslantern.Common
import Mosslantern.Slide

/// The frame of a text block on the canvas: takes its clicks, gestures and keys, and holds its editor.
FocusScope {
    id: root

    required property DraggableTextView block
    required property string label
    /// Thickness of a line of one point of the screen, whatever the block's scale.
    readonly property real hairline: 1 / Math.max(0.01, Math.abs(block.drawnScale))

    function moveBy(from: point, to: point) {
        block.drag(Qt.size(to.x - from.x, to.y - from.y))
    }

    width: block.frameSize.width
    height: block.frameSize.height
    x: block.center.x - width / 2
    y: block.center.y - height / 2
    scale: block.drawnScale
    activeFocusOnTab: true
    Accessible.role: Accessible.EditableText
    Accessible.name: label
    Accessible.description: block.text

    Keys.enabled: !block.isFocused
    Keys.onPressed: (event) => {
        const step = event.modifiers & Qt.ShiftModifier ? 10 : 1
        switch (event.key) {
        case Qt.Key_Left: root.block.nudge(-step, 0); break
        case Qt.Key_Right: root.block.nudge(step, 0); break
        case Qt.Key_Up: root.block.nudge(0, -step); break
        case Qt.Key_Down: root.block.nudge(0, step); break
        case Qt.Key_Return:
        case Qt.Key_Enter: root.block.startEditing(); break
        default: return
        }
        event.accepted = true
    }

    ClickHandler {
        enabled: !root.block.isFocused
        onSingleTapped: root.forceActiveFocus(Qt.MouseFocusReason)
        onDoubleTapped: (point) => root.block.doubleClick(point.position)
    }
    DragHandler {
        id: drag

        function follow() {
            if (active)
                root.moveBy(centroid.scenePressPosition, centroid.scenePosition)
        }

        enabled: !root.block.isFocused
        target: null
        dragThreshold: 10
        onCentroidChanged: follow()
        onActiveChanged: {
            follow()
            if (!active)
                root.block.endDrag()
        }
    }
    PinchHandler {
        id: pinch

        property point start

        enabled: !root.block.isFocused
        target: null
        onUpdated: if (active) {
            root.block.magnify(activeScale)
            root.moveBy(start, centroid.scenePosition)
        }
        onActiveChanged: {
            start = centroid.scenePosition
            if (!active) {
                root.block.endMagnify()
                root.block.endDrag()
            }
        }
    }
    WheelHandler {
        // Of a fine wheel, many steps make one change.
        property real angle: 0

        enabled: !root.block.isFocused
        acceptedModifiers: Qt.ControlModifier
        acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
        target: null
        onWheel: (event) => {
            angle += event.angleDelta.y
            root.block.magnify(Math.pow(1.1, angle / 120))
            if (root.block.currentScale === 1)
                return
            angle = 0
            root.block.endMagnify()
        }
    }
    HoverHandler {
        enabled: !root.block.isFocused
        cursorShape: drag.active ? Qt.ClosedHandCursor : Qt.OpenHandCursor
    }

    Rectangle {
        anchors.fill: parent
        visible: root.activeFocus && !root.block.isFocused
        color: "transparent"
        border.color: Theme.blue
        border.width: Theme.focusWidth * root.hairline
        radius: Theme.blockRadius
    }
    Loader {
        id: editor
        anchors.fill: parent
    }
    Connections {
        target: root.block

        function onIsFocusedChanged() {
            if (root.block.isFocused)
                editor.setSource("TextBlockEditor.qml", {"block": root.block})
            else
                editor.setSource("")
        }
    }
}
