import QtQuick
import Mosslantern.Common
import Mosslantern.Slide
import Mosslantern.Generator

/// The large preview of one entry, whose texts can be dragged, scaled and retyped.
FocusScope {
    id: root

    required property LivePreview preview
    required property bool isGenerating
    readonly property rect frame: preview.frame

    clip: true

    Rectangle {
        id: backdrop
        anchors.fill: parent
        color: Theme.windowBackground
    }
    ClickHandler {
        onTapped: (tap) => {
            if (editable.isBesideTexts(root, tap.position))
                editable.content.forceActiveFocus(Qt.MouseFocusReason)
        }
    }
    Item {
        id: area
        anchors.fill: parent
        enabled: !root.isGenerating
        anchors.topMargin: heading.height
        anchors.bottomMargin: navigation.visible ? navigation.height + 20 : 0
        onWidthChanged: fit()
        onHeightChanged: fit()
        Component.onCompleted: fit()

        function fit() {
            root.preview.area = Qt.size(width, height)
        }

        EditableSlide {
            id: editable
            anchors.fill: parent
            mainBlock: root.preview.mainBlock
            subtitleBlock: root.preview.subtitleBlock
            hasSubtitle: root.preview.hasSubtitle
            frame: root.frame
            backdrop: backdrop.color
            shadowStrength: 0.5
            contentName: "livePreview"
            mainTextName: "liveMainText"
            subtitleTextName: "liveSubtitle"

            Rectangle {
                anchors.fill: parent
                visible: root.preview.asset === null
                radius: Theme.canvasRadius
                color: Theme.emptyCanvas

                Symbol {
                    anchors.centerIn: parent
                    name: "photo"
                    size: Theme.emptySymbol
                    color: Theme.secondary
                }
            }
            AssetBackground {
                objectName: "livePicture"
                anchors.fill: parent
                asset: root.preview.asset
                canvasSize: Qt.size(root.frame.width, root.frame.height)
            }
        }
    }
    NumberAnimation {
        id: appearing
        target: editable.content
        property: "opacity"
        from: 0.3
        to: 1
        duration: 200
        easing.type: Easing.OutCubic
    }
    Connections {
        target: root.preview
        function onIndexChanged() {
            appearing.restart()
        }
    }

    Text {
        id: heading
        width: parent.width
        padding: Theme.padding
        text: qsTr("Live Preview")
        color: Theme.secondary
        font.family: Theme.family
        font.pixelSize: Theme.caption
        font.weight: Font.DemiBold
        horizontalAlignment: Text.AlignHCenter
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }
    PreviewNavigation {
        id: navigation
        objectName: "previewNavigation"
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 20
        visible: root.preview.count > 1
        enabled: !root.isGenerating
        preview: root.preview
    }
    GeneratingOverlay {
        objectName: "generatingOverlay"
        anchors.fill: parent
        visible: root.isGenerating
    }
}
