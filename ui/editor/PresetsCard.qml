import QtQuick
import Mosslantern.Common
import Mosslantern.Editor

/// The saved presets: choose, apply, delete, save.
InspectorCard {
    id: root

    required property SlideInspectorView inspector
    required property color saveTint
    readonly property bool hasPreset: inspector.hasSelectedPreset

    title: qsTr("Presets")

    Column {
        width: parent.width
        spacing: Theme.padding

        Column {
            width: parent.width
            spacing: Theme.spacing

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
            spacing: Theme.wideSpacing

            ActionButton {
                objectName: "applyPreset"
                width: (parent.width - parent.spacing) / 2
                enabled: root.hasPreset
                text: qsTr("Apply")
                symbol: "arrow.down.circle"
                fontSize: Theme.caption
                symbolSize: Theme.body
                tint: root.hasPreset ? Theme.blue : Theme.secondary
                ground: root.hasPreset ? Theme.blue : Theme.gray
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
                symbolSize: Theme.body
                tint: root.hasPreset ? Theme.red : Theme.secondary
                ground: root.hasPreset ? Theme.red : Theme.gray
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
