pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Mosslantern.Common

/// A choice of one among many, in a menu that opens below.
T.ComboBox {
    id: root

    required property string label

    implicitWidth: 180
    implicitHeight: Theme.controlHeight
    leftPadding: 10
    rightPadding: 28
    focusPolicy: Qt.StrongFocus
    font.family: Theme.family
    font.pixelSize: Theme.body
    Accessible.role: Accessible.ComboBox
    Accessible.name: label
    Accessible.description: displayText
    Accessible.onPressAction: popup.visible ? popup.close() : popup.open()

    contentItem: ElidedText {
        showsWhole: !root.popup.visible
        text: root.displayText
        color: root.enabled ? Theme.primary : Theme.disabled
        verticalAlignment: Text.AlignVCenter
    }
    indicator: Symbol {
        x: root.width - width - 9
        y: (root.height - height) / 2
        name: "chevron.up.chevron.down"
        size: Theme.smallSymbol
        color: root.enabled ? Theme.secondary : Theme.disabled
    }
    background: Rectangle {
        color: root.pressed ? Theme.controlBackground : Theme.raisedBackground
        border.color: Theme.separator
        radius: Theme.controlRadius

        Rectangle {
            anchors.fill: parent
            radius: parent.radius
            color: root.hovered ? Theme.hovered : "transparent"
        }
        FocusRing {
            visible: root.activeFocus && InputMode.usesKeyboard
        }
    }
    delegate: T.ItemDelegate {
        id: option

        required property int index

        width: ListView.view ? ListView.view.width : 0
        implicitHeight: 26
        leftPadding: 28
        rightPadding: 9
        highlighted: root.highlightedIndex === index
        text: root.textAt(index)
        Accessible.role: Accessible.ListItem
        Accessible.name: text
        Accessible.selected: index === root.currentIndex
        Accessible.onPressAction: option.clicked()

        contentItem: ElidedText {
            text: option.text
            color: option.highlighted ? Theme.accentText : Theme.primary
            verticalAlignment: Text.AlignVCenter
        }
        background: Rectangle {
            color: option.highlighted ? Theme.accent : "transparent"
            radius: Theme.controlRadius - 1

            Symbol {
                x: 8
                anchors.verticalCenter: parent.verticalCenter
                visible: option.index === root.currentIndex
                name: "checkmark"
                size: Theme.smallSymbol
                color: option.highlighted ? Theme.accentText : Theme.primary
            }
        }
    }
    popup: T.Popup {
        y: root.height + 4
        width: root.width
        height: Math.min(contentItem.implicitHeight + 10, 320)
        padding: 5
        margins: 8
        closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutside

        contentItem: ListView {
            clip: true
            implicitHeight: contentHeight
            model: root.delegateModel
            currentIndex: root.highlightedIndex
            boundsBehavior: Flickable.StopAtBounds
            T.ScrollBar.vertical: ScrollIndicatorBar {}
        }
        background: Rectangle {
            color: Theme.raisedBackground
            border.color: Theme.separator
            radius: Theme.controlRadius + 2

            InputLayer {
                covers: root.popup.visible
            }
        }
    }
}
