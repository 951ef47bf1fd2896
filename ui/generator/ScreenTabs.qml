pragma ComponentBehavior: Bound

import QtQuick
import Mosslantern.Common

/// The tabs of a screen, in the middle of the bar at its top. The arrow keys move from tab to tab.
FocusScope {
    id: root

    required property list<string> titles
    required property list<string> symbols
    property int currentIndex: 0

    function choose(index: int) {
        if (index >= 0 && index < titles.length)
            currentIndex = index
    }

    implicitHeight: 44
    activeFocusOnTab: true
    Accessible.role: Accessible.PageTabList
    Accessible.name: titles[currentIndex]
    Keys.onLeftPressed: choose(currentIndex - 1)
    Keys.onRightPressed: choose(currentIndex + 1)

    Rectangle {
        id: track
        anchors.centerIn: parent
        width: row.width + 4
        height: row.height + 4
        color: Theme.textBackground
        border.color: Theme.separator
        radius: Theme.controlRadius + 1

        FocusRing {
            visible: root.activeFocus && InputMode.usesKeyboard
        }
        Rectangle {
            x: 2 + root.currentIndex * width
            y: 2
            width: 116
            height: row.height
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
            id: row
            x: 2
            y: 2

            Repeater {
                model: root.titles

                SymbolLabel {
                    id: tab

                    required property int index
                    required property string modelData
                    readonly property bool isCurrent: index === root.currentIndex

                    objectName: "screenTab" + index
                    width: 116
                    height: Theme.controlHeight - 2
                    symbol: root.symbols[index]
                    text: modelData
                    color: isCurrent ? Theme.primary : Theme.secondary
                    weight: isCurrent ? Font.DemiBold : Font.Normal
                    Accessible.role: Accessible.PageTab
                    Accessible.name: text
                    Accessible.selected: isCurrent
                    Accessible.onPressAction: root.choose(index)

                    ClickHandler {
                        onTapped: {
                            root.forceActiveFocus(Qt.MouseFocusReason)
                            root.choose(tab.index)
                        }
                    }
                }
            }
        }
    }
    Rectangle {
        anchors.bottom: parent.bottom
        width: parent.width
        height: 1
        color: Theme.separator
    }
}
