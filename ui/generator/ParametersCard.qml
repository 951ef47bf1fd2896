import QtQuick
import Mosslantern.Common
import Mosslantern.Generator

/// How many slideshows are made.
InspectorCard {
    id: root

    required property GeneratorView panel

    title: qsTr("Parameters")

    Column {
        width: parent.width
        spacing: 6

        SettingRow {
            symbol: "square.stack.3d.up"
            text: qsTr("Bulk Count")

            DigitsText {
                objectName: "bulkCount"
                text: Math.trunc(root.panel.generator.bulkCount).toString()
                color: Theme.numberText
            }
        }
        SliderView {
            objectName: "bulkCountSlider"
            width: parent.width
            label: qsTr("Bulk Count")
            tint: Theme.blue
            from: 1
            to: 50
            stepSize: 1
            shown: root.panel.generator.bulkCount
            onPicked: (value) => root.panel.generator.bulkCount = value
        }
    }
}
