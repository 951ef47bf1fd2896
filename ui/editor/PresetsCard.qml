import QtQuick
import Mosslantern.Common
import Mosslantern.Editor

/// The saved presets: choose, apply, delete, save.
InspectorCard {
    id: root

    required property SlideInspectorView inspector
    required property color saveTint
    readonly property bool hasPreset: inspector.hasSelectedPreset
    readonly property color gray: "#8e8e93"

    title: qsTr("Presets")

    Column {
        width: parent.width
        spacing: 16

        Column {
            width: parent.width
            spacing: 8

            InspectorLabel {
                symbol: "star.fill"
                text: qsTr("Saved Presets")
            }
            MenuPicker {
                objectName: "presetPicker"
                width: parent.width
                label: qsTr("Preset")
                model: root.inspector.presetNames
                currentIndex: root.inspector.presetChoice
                onActivated: (index) => root.inspector.choosePreset(index)
            }
        }
        Row {
            width: parent.width
            spacing: 12

            ActionButton {
                objectName: "applyPreset"
                width: (parent.width - parent.spacing) / 2
                enabled: root.hasPreset
                text: qsTr("Apply")
                symbol: "arrow.down.circle"
                fontSize: Theme.caption
                symbolSize: 13
                tint: root.hasPreset ? Theme.blue : Theme.secondary
                ground: root.hasPreset ? Theme.blue : root.gray
                groundOpacity: root.hasPreset ? 0.2 : 0.1
                onClicked: root.inspector.applyPresetToSlide()
            }
            ActionButton {
                objectName: "deletePreset"
                width: (parent.width - parent.spacing) / 2
                enabled: root.hasPreset
                text: qsTr("Delete")
                symbol: "trash"
                fontSize: Theme.caption
                symbolSize: 13
                tint: root.hasPreset ? Theme.red : Theme.secondary
                ground: root.hasPreset ? Theme.red : root.gray
                groundOpacity: 0.1
                onClicked: root.inspector.deleteSelectedPreset()
            }
        }
        InspectorDivider {
            width: parent.width
        }
        ActionButton {
            objectName: "savePreset"
            width: parent.width
            text: qsTr("Save Current Settings as Preset")
            symbol: "square.and.arrow.down"
            tint: root.saveTint
            onClicked: root.inspector.showingSaveDialog = true
        }
    }
}
