import QtQuick
import Mosslantern.Common
import Mosslantern.Editor

/// The panel beside the canvas: the selected slide's texts and style, and the presets.
Rectangle {
    id: root

    required property SlideInspectorView inspector

    color: Theme.controlBackground

    CardColumn {
        anchors.fill: parent
        spacing: Theme.padding

        Text {
            width: parent.width
            leftPadding: 4
            rightPadding: 4
            text: qsTr("Edit Slide")
            color: Theme.titleText
            font.family: Theme.family
            font.pixelSize: Theme.headline
            font.weight: Font.Bold
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }

        InspectorCard {
            width: parent.width
            title: qsTr("Content")

            Column {
                width: parent.width
                spacing: Theme.padding

                Column {
                    width: parent.width
                    spacing: Theme.spacing

                    InspectorLabel {
                        symbol: "text.quote"
                        text: qsTr("Main Text")
                    }
                    GrowingTextField {
                        objectName: "mainField"
                        width: parent.width
                        label: qsTr("Main Text")
                        placeholder: qsTr("Enter text")
                        minimumLines: 3
                        maximumLines: 5
                        text: root.inspector.text
                        onActiveFocusChanged: if (activeFocus) root.inspector.slideNeeded()
                        onTextEdited: (text) => root.inspector.text = text
                    }
                }
                InspectorDivider {
                    width: parent.width
                }
                Column {
                    width: parent.width
                    spacing: Theme.spacing

                    InspectorLabel {
                        symbol: "text.bubble"
                        text: qsTr("Subtitle")
                    }
                    GrowingTextField {
                        objectName: "subtitleField"
                        width: parent.width
                        label: qsTr("Subtitle")
                        placeholder: qsTr("Enter subtitle")
                        minimumLines: 2
                        maximumLines: 3
                        text: root.inspector.subtitle
                        onActiveFocusChanged: if (activeFocus) root.inspector.slideNeeded()
                        onTextEdited: (text) => root.inspector.subtitle = text
                    }
                }
            }
        }

        InspectorCard {
            width: parent.width
            title: qsTr("Visual Style")

            Column {
                width: parent.width
                spacing: Theme.padding

                Column {
                    width: parent.width
                    spacing: Theme.spacing

                    InspectorLabel {
                        symbol: "textformat"
                        text: qsTr("Text Style")
                    }
                    SegmentedPicker {
                        objectName: "stylePicker"
                        width: parent.width
                        label: qsTr("Style")
                        options: root.inspector.styleNames
                        currentIndex: root.inspector.textStyle
                        onPicked: (index) => root.inspector.textStyle = index
                    }
                }
                InspectorDivider {
                    width: parent.width
                    visible: root.inspector.showsBoxColor || root.inspector.showsBorder
                }
                Item {
                    width: parent.width
                    height: boxPicker.height
                    visible: root.inspector.showsBoxColor

                    InspectorLabel {
                        anchors.verticalCenter: parent.verticalCenter
                        symbol: "paintpalette"
                        text: qsTr("Box Color")
                    }
                    SegmentedPicker {
                        id: boxPicker
                        objectName: "boxPicker"
                        anchors.right: parent.right
                        width: 120
                        label: qsTr("Box Color")
                        options: [qsTr("White"), qsTr("Black")]
                        currentIndex: root.inspector.colorChoice
                        onPicked: (index) => root.inspector.chooseColor(index)
                    }
                }
                Item {
                    width: parent.width
                    height: borderPicker.height
                    visible: root.inspector.showsBorder

                    InspectorLabel {
                        anchors.verticalCenter: parent.verticalCenter
                        symbol: "paintbrush"
                        text: qsTr("Border")
                    }
                    SegmentedPicker {
                        id: borderPicker
                        objectName: "borderPicker"
                        anchors.right: parent.right
                        width: 150
                        label: qsTr("Border")
                        options: [qsTr("Border"), qsTr("No Border")]
                        currentIndex: root.inspector.colorChoice
                        onPicked: (index) => root.inspector.chooseColor(index)
                    }
                }
                InspectorDivider {
                    width: parent.width
                    visible: root.inspector.hasSlideshow
                }
                ActionButton {
                    objectName: "applyToAll"
                    width: parent.width
                    visible: root.inspector.hasSlideshow
                    text: qsTr("Apply Style to All Slides")
                    symbol: "square.on.square"
                    tint: Theme.blue
                    onClicked: root.inspector.applyToAllSlides()
                }
                ActionButton {
                    objectName: "applyToBatch"
                    width: parent.width
                    visible: root.inspector.hasBatch
                    text: qsTr("Apply Style to Whole Batch")
                    symbol: "square.stack.3d.up"
                    tint: Theme.purple
                    onClicked: root.inspector.applyToBatch()
                }
            }
        }

        PresetsCard {
            width: parent.width
            inspector: root.inspector
            saveTint: Theme.green
        }
    }
    SavePresetSheet {
        inspector: root.inspector
    }
}
