pragma ComponentBehavior: Bound

import QtQuick
import Mosslantern.Common

/// A choice of one among a few, side by side. The arrow keys move the choice.
FocusScope {
    id: root

    required property string label
    required property list<string> options
    property int currentIndex: 0

    signal picked(index: int)

    function pick(index: int) {
        if (index !== currentIndex && index >= 0 && index < options.length)
            picked(index)
    }

    implicitWidth: 80 * options.length
    implicitHeight: Theme.controlHeight
    activeFocusOnTab: true
    Accessible.role: Accessible.List
    Accessible.name: label
    Keys.onLeftPressed: pick(currentIndex - 1)
    Keys.onRightPressed: pick(currentIndex + 1)

    Rectangle {
        anchors.fill: parent
        color: Theme.textBackground
        border.color: Theme.separator
        radius: Theme.controlRadius
    }
    Rectangle {
        x: 2 + root.currentIndex * width
        y: 2
        width: (parent.width - 4) / Math.max(1, root.options.length)
        height: parent.height - 4
        visible: root.currentIndex >= 0
        color: Theme.raisedBackground
        border.color: Theme.separator
        radius: Theme.controlRadius - 1

        Behavior on x {
            NumberAnimation {
                duration: Theme.quick
                easing.type: Easing.OutCubic
            }
        }
    }
    Row {
        x: 2

        Repeater {
            model: root.options

            ElidedText {
                id: segment

                required property int index
                required property string modelData

                objectName: root.objectName + index
                width: (root.width - 4) / root.options.length
                height: root.height
                leftPadding: 3
                rightPadding: 3
                text: modelData
                color: !root.enabled ? Theme.disabled : index === root.currentIndex ? Theme.primary : Theme.secondary
                font.weight: index === root.currentIndex ? Font.DemiBold : Font.Normal
                horizontalAlignment: Text.AlignHCenter
                verticalAlignment: Text.AlignVCenter
                Accessible.role: Accessible.RadioButton
                Accessible.checkable: true
                Accessible.checked: index === root.currentIndex
                Accessible.onPressAction: root.pick(index)

                ClickHandler {
                    onTapped: {
                        root.forceActiveFocus(Qt.MouseFocusReason)
                        root.pick(segment.index)
                    }
                }
            }
        }
    }
    FocusRing {
        visible: root.activeFocus && InputMode.usesKeyboard
    }
}
