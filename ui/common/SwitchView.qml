import QtQuick
import QtQuick.Templates as T
import Mosslantern.Common

/// A setting that is on or off: its text and, at the trailing edge, the switch. It shows `isOn`; the owner takes what is
/// picked, by pointer, by keys or by an assistive tool.
T.Switch {
    id: root

    required property bool isOn

    signal picked(isOn: bool)

    property bool isShowing: false

    function show() {
        isShowing = true
        checked = isOn
        isShowing = false
    }

    implicitWidth: implicitContentWidth + implicitIndicatorWidth + 12
    implicitHeight: Math.max(implicitContentHeight, implicitIndicatorHeight)
    focusPolicy: Qt.StrongFocus
    Accessible.role: Accessible.CheckBox
    Accessible.name: text
    Accessible.checkable: true
    Accessible.checked: checked
    Accessible.onPressAction: toggle()
    Accessible.onToggleAction: toggle()
    onIsOnChanged: show()
    onCheckedChanged: {
        if (!isShowing) {
            picked(checked)
            show()
        }
    }
    Component.onCompleted: show()

    contentItem: Text {
        text: root.text
        color: root.enabled ? Theme.primary : Theme.disabled
        font.family: Theme.family
        font.pixelSize: Theme.body
        textFormat: Text.PlainText
        verticalAlignment: Text.AlignVCenter
    }
    indicator: Rectangle {
        x: root.width - width
        y: (root.height - height) / 2
        implicitWidth: 38
        implicitHeight: 22
        radius: height / 2
        color: !root.checked ? Theme.separator : root.enabled ? Theme.accent : Theme.disabled

        Rectangle {
            x: 2 + root.visualPosition * (parent.width - width - 4)
            y: 2
            width: 18
            height: 18
            radius: width / 2
            color: root.enabled ? Theme.primary : Theme.secondary

            Behavior on x {
                NumberAnimation {
                    duration: Theme.quick
                    easing.type: Easing.OutCubic
                }
            }
        }
        FocusRing {
            radius: parent.radius + distance
            visible: root.activeFocus && InputMode.usesKeyboard
        }
    }
}
