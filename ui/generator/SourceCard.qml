import QtQuick
import Mosslantern.Common
import Mosslantern.Generator

/// Which assets the slides are made of.
InspectorCard {
    id: root

    required property GeneratorView panel

    title: qsTr("Asset Source")

    Column {
        width: parent.width
        spacing: 12

        SettingRow {
            symbol: "photo.stack"
            text: qsTr("Source")

            MenuPicker {
                objectName: "sourcePicker"
                width: 150
                label: qsTr("Source")
                model: root.panel.collectionNames
                currentIndex: root.panel.collectionChoice
                onActivated: (index) => root.panel.chooseCollection(index)
            }
        }
        Row {
            spacing: 6

            Symbol {
                anchors.verticalCenter: parent.verticalCenter
                name: "photo"
                size: Theme.body
                color: Theme.secondary
            }
            Text {
                objectName: "availableAssets"
                anchors.verticalCenter: parent.verticalCenter
                text: root.panel.availableAssets
                color: Theme.secondary
                font.family: Theme.family
                font.pixelSize: Theme.caption
                Accessible.role: Accessible.StaticText
                Accessible.name: text
            }
        }
    }
}
