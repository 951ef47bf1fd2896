pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Mosslantern.Common
import Mosslantern.Editor
import Mosslantern.Slide

/// The editor of one slideshow: its slides, the canvas and the inspector side by side.
FocusScope {
    id: root

    required property ScreenContext context
    required property Slideshow slideshow

    signal dismissed

    Accessible.role: Accessible.Pane
    Accessible.name: qsTr("Edit Slideshow")
    Keys.onEscapePressed: if (!overlay.visible) dismissed()

    SlideshowDetailView {
        id: detail
        objectName: "slideshowDetail"
        context: root.context
        slideshow: root.slideshow
    }
    Connections {
        target: detail.inspector

        function onSlideNeeded() {
            if (preview.canvas)
                preview.canvas.canvas.write()
        }
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.windowBackground
    }
    ScreenHeader {
        id: header
        width: parent.width
        // The toolbar is level with the close button.
        height: 2 * Theme.widePadding + close.height
        enabled: !overlay.visible
        title: qsTr("Edit Slideshow")

        PushButton {
            objectName: "done"
            text: qsTr("Done")
            onClicked: root.dismissed()
        }
        PushButton {
            id: exportButton
            objectName: "export"
            text: qsTr("Export")
            symbol: "square.and.arrow.up"
            isProminent: true
            onClicked: {
                if (preview.canvas)
                    preview.canvas.canvas.commit()
                detail.exportSlideshow()
            }
        }
        Item {
            width: 30
            height: 1
        }
    }

    T.SplitView {
        anchors.fill: parent
        anchors.topMargin: header.height
        enabled: !overlay.visible
        orientation: Qt.Horizontal
        handle: SplitHandle {}

        Rectangle {
            objectName: "slideColumn"
            T.SplitView.minimumWidth: 150
            T.SplitView.preferredWidth: 170
            T.SplitView.maximumWidth: 200
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
                objectName: "slideList"
                anchors.fill: parent
                anchors.topMargin: heading.height
                topMargin: Theme.padding
                bottomMargin: Theme.padding
                spacing: Theme.padding
                focus: true
                label: heading.text
                model: detail.slides
                currentIndex: detail.selectedSlideIndex
                onCurrentItemChanged: {
                    if (currentItem)
                        contentY = Math.min(Math.max(contentY, currentItem.y + currentItem.height + bottomMargin - height),
                                            currentItem.y - topMargin)
                }
                onMoved: (rows) =>
                    detail.select(Math.max(0, Math.min(count - 1, detail.selectedSlideIndex + rows)))

                delegate: SlideListEntry {
                    width: ListView.view.width
                    aspectRatio: root.slideshow ? root.slideshow.aspectRatio : undefined
                    isSelected: index === detail.selectedSlideIndex
                    onChosen: {
                        list.forceActiveFocus(Qt.MouseFocusReason)
                        detail.select(index)
                    }
                }
            }
        }
        SlideshowDetailPreviewView {
            id: preview
            T.SplitView.minimumWidth: 400
            T.SplitView.fillWidth: true
            slideshow: root.slideshow
            selectedSlideIndex: detail.selectedSlideIndex
            slide: detail.selectedSlide
        }
        SlideInspector {
            objectName: "inspectorColumn"
            T.SplitView.minimumWidth: 320
            T.SplitView.preferredWidth: 320
            T.SplitView.maximumWidth: 320
            visible: detail.selectedSlide !== null
            inspector: detail.inspector
        }
    }

    SymbolButton {
        id: close
        objectName: "close"
        anchors.top: parent.top
        anchors.right: parent.right
        anchors.margins: Theme.widePadding
        implicitWidth: Theme.title2
        implicitHeight: Theme.title2
        enabled: !overlay.visible
        focusPolicy: Qt.TabFocus
        text: qsTr("Close")
        symbol: "xmark.circle.fill"
        symbolSize: Theme.title2
        symbolColor: hovered ? Theme.primary : Theme.secondary
        hasGround: false
        onClicked: root.dismissed()
    }

    ExportOverlay {
        id: overlay
        anchors.fill: parent
        run: detail.exportRun
        returnsTo: exportButton
    }
}
