import QtQuick
import QtQuick.Templates as T
import Mosslantern.Common

/// A setting that is on or off: its text and, at the trailing edge, the switch. It is shown, not set: the owner
/// takes what is picked.
T.Switch {
    id: root

    signal picked(isOn: bool)

    implicitWidth: implicitContentWidth + implicitIndicatorWidth + 12
    implicitHeight: Math.max(implicitContentHeight, implicitIndicatorHeight)
    focusPolicy: Qt.StrongFocus
    Accessible.role: Accessible.CheckBox
    Accessible.name: text
    Accessible.checkable: true
    Accessible.checked: checked
    onToggled: picked(checked)

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
