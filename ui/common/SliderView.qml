import QtQuick
import QtQuick.Templates as T
import Mosslantern.Common

/// A number from a range. It shows `shown`; the owner takes what is picked, by pointer, by keys or by an assistive
/// tool, which sets the value itself. The arrow, page, Home and End keys move it; the wheel does only with Control, or
/// when the keyboard has brought the focus here, so that a panel can be scrolled across it.
T.Slider {
    id: root

    required property string label
    required property real shown
    property color tint: Theme.accent
    /// Of the arrow keys and the wheel.
    property real step: stepSize > 0 ? stepSize : (to - from) / 50

    signal picked(value: real)

    property bool isShowing: false

    function show() {
        isShowing = true
        value = shown
        isShowing = false
    }
    function pick(wanted: real) {
        const bounded = Math.min(to, Math.max(from, wanted))
        if (bounded !== value)
            picked(bounded)
    }
    function pickSteps(steps: real) {
        pick(Math.round((value + steps * step) / step) * step)
    }

    implicitWidth: 200
    implicitHeight: 22
    leftPadding: 0
    rightPadding: 0
    focusPolicy: Qt.StrongFocus
    snapMode: stepSize > 0 ? T.Slider.SnapAlways : T.Slider.NoSnap
    Accessible.role: Accessible.Slider
    Accessible.name: label
    Accessible.onIncreaseAction: pickSteps(1)
    Accessible.onDecreaseAction: pickSteps(-1)
    onShownChanged: show()
    onValueChanged: {
        if (!isShowing) {
            picked(value)
            show()
        }
    }
    Component.onCompleted: show()

    Keys.onPressed: (event) => {
        switch (event.key) {
        case Qt.Key_Left:
        case Qt.Key_Down: root.pickSteps(-1); break
        case Qt.Key_Right:
        case Qt.Key_Up: root.pickSteps(1); break
        case Qt.Key_PageDown: root.pickSteps(-10); break
        case Qt.Key_PageUp: root.pickSteps(10); break
        case Qt.Key_Home: root.pick(root.from); break
        case Qt.Key_End: root.pick(root.to); break
        default: return
        }
        event.accepted = true
    }

    WheelHandler {
        property real turned: 0

        acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
        acceptedModifiers: root.activeFocus && InputMode.usesKeyboard ? Qt.KeyboardModifierMask : Qt.ControlModifier
        target: null
        onWheel: (event) => {
            turned += event.angleDelta.y / 120
            const steps = Math.trunc(turned)
            turned -= steps
            root.pickSteps(steps)
        }
    }

    background: Item {
        Rectangle {
            x: 0
            y: (parent.height - height) / 2
            width: parent.width
            height: 4
            radius: 2
            color: Theme.separator

            Rectangle {
                width: root.handle.x + root.handle.width / 2
                height: parent.height
                radius: 2
                color: root.enabled ? root.tint : Theme.disabled
            }
        }
    }
    handle: Rectangle {
        x: root.leftPadding + root.visualPosition * (root.availableWidth - width)
        y: (root.height - height) / 2
        implicitWidth: 18
        implicitHeight: 18
        radius: width / 2
        color: !root.enabled ? Theme.disabled : root.pressed ? Theme.knobPressed : root.hovered ? Theme.knobHovered : Theme.primary
        border.color: Theme.knobOutline

        FocusRing {
            radius: parent.radius + distance
            visible: root.activeFocus && InputMode.usesKeyboard
        }
    }
}
