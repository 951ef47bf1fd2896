import QtQuick
import Mosslantern.Common
import Mosslantern.Generator

/// The look of the texts.
InspectorCard {
    id: root

    required property GeneratorView panel

    title: qsTr("Visual Style")

    Column {
        width: parent.width
        spacing: 16

        Column {
            width: parent.width
            spacing: 8

            ElidedText {
                text: qsTr("Style")
            }
            SegmentedPicker {
                objectName: "generatorStyle"
                width: parent.width
                label: qsTr("Style")
                options: root.panel.styleNames
                currentIndex: root.panel.style
                onPicked: (index) => root.panel.style = index
            }
        }
        CardDivider {
            visible: root.panel.showsBoxColor || root.panel.showsBorder
        }
        SettingRow {
            visible: root.panel.showsBoxColor
            symbol: "paintpalette"
            text: qsTr("Box Color")

            SegmentedPicker {
                objectName: "generatorBoxColor"
                width: 150
                label: qsTr("Box Color")
                options: [qsTr("White"), qsTr("Black")]
                currentIndex: root.panel.colorChoice
                onPicked: (index) => root.panel.chooseColor(index)
            }
        }
        SettingRow {
            visible: root.panel.showsBorder
            symbol: "paintbrush"
            text: qsTr("Border")

            SegmentedPicker {
                objectName: "generatorBorder"
                width: 150
                label: qsTr("Border")
                options: [qsTr("Border"), qsTr("No Border")]
                currentIndex: root.panel.colorChoice
                onPicked: (index) => root.panel.chooseColor(index)
            }
        }
    }
}
