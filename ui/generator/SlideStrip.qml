pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Mosslantern.Common
import Mosslantern.Generator

/// Small previews of all entries. The arrow keys move from entry to entry.
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
    ListView {
        id: list
        objectName: "slideStrip"
        anchors.fill: parent
        anchors.topMargin: heading.height
        topMargin: 2
        bottomMargin: Theme.padding
        spacing: 12
        clip: true
        activeFocusOnTab: true
        keyNavigationEnabled: false
        boundsBehavior: Flickable.StopAtBounds
        pixelAligned: true
        highlight: null
        highlightMoveDuration: 200
        highlightMoveVelocity: -1
        model: root.preview.entries
        currentIndex: root.preview.index
        Accessible.role: Accessible.List
        Accessible.name: heading.text
        Keys.onUpPressed: root.preview.index -= 1
        Keys.onDownPressed: root.preview.index += 1
        T.ScrollBar.vertical: ScrollIndicatorBar {}

        FocusRing {
            parent: list
            distance: -3
            visible: list.activeFocus && InputMode.usesKeyboard
        }

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
