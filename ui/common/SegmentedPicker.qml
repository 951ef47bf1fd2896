pragma ComponentBehavior: Bound

import QtQuick
import Mosslantern.Common

/// A choice of one among a few, side by side. The arrow keys move the choice.
FocusScope {
    id: root

    required property string label
    required property list<string> options
    /// One for each option, or none.
    property list<string> symbols
    property int currentIndex: 0
    /// What an option is for those who do not see it: a radio button or a tab.
    property int optionRole: Accessible.RadioButton
    property real radius: Theme.controlRadius

    signal picked(index: int)

    function pick(index: int) {
        if (index !== currentIndex && index >= 0 && index < options.length)
            picked(index)
    }

    implicitWidth: 80 * options.length
    implicitHeight: Theme.controlHeight
    activeFocusOnTab: true
    Accessible.role: optionRole === Accessible.PageTab ? Accessible.PageTabList : Accessible.List
    Accessible.name: label
    Keys.onLeftPressed: pick(currentIndex - 1)
    Keys.onRightPressed: pick(currentIndex + 1)

    Rectangle {
        anchors.fill: parent
        color: Theme.textBackground
        border.color: Theme.separator
        radius: root.radius
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
        y: 2

        Repeater {
            model: root.options

            SymbolLabel {
                id: segment

                required property int index
                required property string modelData
                readonly property bool isCurrent: index === root.currentIndex

                objectName: root.objectName + index
                width: (root.width - 4) / root.options.length
                height: root.height - 4
                symbol: root.symbols[index] ?? ""
                text: modelData
                color: !root.enabled ? Theme.disabled : isCurrent ? Theme.primary : Theme.secondary
                weight: isCurrent ? Font.DemiBold : Font.Normal
                Accessible.role: root.optionRole
                Accessible.name: text
                Accessible.checkable: root.optionRole === Accessible.RadioButton
                Accessible.checked: isCurrent
                Accessible.selected: isCurrent
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
