import QtQuick
import Mosslantern.Common
import Mosslantern.Generator

/// The size of a text: its name, the size in per cent and a slider.
Column {
    id: root

    required property GeneratorView panel
    required property string symbol
    required property string text
    required property real value

    signal picked(value: real)

    width: parent ? parent.width : 0
    spacing: 6

    SettingRow {
        symbol: root.symbol
        text: root.text

        DigitsText {
            objectName: root.objectName + "Value"
            text: root.panel.percentage(root.value)
            color: Theme.secondary
            fontSize: Theme.caption
        }
    }
    SliderView {
        objectName: root.objectName + "Slider"
        width: parent.width
        label: root.text
        tint: Theme.blue
        from: 0.5
        to: 3
        shown: root.value
        onPicked: (value) => root.picked(value)
    }
}
