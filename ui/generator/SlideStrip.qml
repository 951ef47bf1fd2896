pragma ComponentBehavior: Bound

import QtQuick
import Mosslantern.Common
import Mosslantern.Generator

/// Small previews of all entries. Keys move from entry to entry.
Rectangle {
    id: root

    required property LivePreview preview
    required property SlideshowGenerator generator

    color: Theme.controlBackground

    Text {
        id: heading
        width: parent.width
        padding: Theme.padding
        text: qsTr("Slides")
        color: Theme.secondary
        font.family: Theme.family
        font.pixelSize: Theme.caption
        font.weight: Font.DemiBold
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }
    KeyList {
        id: list
        objectName: "slideStrip"
        anchors.fill: parent
        anchors.topMargin: heading.height
        topMargin: 2
        bottomMargin: Theme.padding
        spacing: 12
        label: heading.text
        pixelAligned: true
        highlightMoveDuration: 200
        highlightMoveVelocity: -1
        model: root.preview.entries
        currentIndex: root.preview.index
        onMoved: (rows) => root.preview.index += rows

        delegate: StripEntry {
            width: ListView.view.width
            preview: root.preview
            generator: root.generator
            onChosen: {
                list.forceActiveFocus(Qt.MouseFocusReason)
                root.preview.index = index
            }
        }
    }
}
