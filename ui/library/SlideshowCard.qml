import QtQuick
import Mosslantern.Common
import Mosslantern.Slide
import Mosslantern.Library

/// One slideshow: its first slide and, below it, what it consists of. The pointer raises it.
Item {
    id: root

    required property Slideshow slideshow
    required property real barHeight
    /// Whether the keyboard is on it, and to be seen there.
    property bool isMarked: false
    readonly property bool isHovering: hover.hovered
    readonly property real corner: Theme.tileRadius
    /// 0 as it lies, 1 raised; the spring passes a little beyond both.
    property real lift: isHovering ? 1 : 0

    signal chosen
    signal menuRequested(position: point)

    objectName: "slideshowCard"
    scale: 1 + 0.02 * lift
    z: lift > 0 ? 1 : 0
    Accessible.role: Accessible.Button
    Accessible.name: slideCount.text + ", " + summary.shapeName
    Accessible.description: summary.firstSlide ? summary.firstSlide.text : ""
    Accessible.focusable: true
    Accessible.focused: isMarked
    Accessible.onPressAction: chosen()

    // Of response 0.3 seconds and damping fraction 0.825. The animation steps every 16 milliseconds; these are
    // the values for which its steps lie on that spring's curve.
    Behavior on lift {
        SpringAnimation {
            spring: 5.342
            damping: 0.4247
            epsilon: 0.002
        }
    }

    SlideshowSummary {
        id: summary
        slideshow: root.slideshow
    }
    CardFrame {
        anchors.fill: parent
        radius: root.corner
        lift: root.lift
        color: Theme.windowBackground
        barColor: Theme.cardBackground
        barHeight: root.barHeight
    }
    Item {
        id: preview
        width: parent.width
        height: parent.height - root.barHeight

        SlidePreviewView {
            objectName: "cardPreview"
            anchors.fill: parent
            visible: summary.firstSlide !== null
            slide: summary.firstSlide
            aspectRatio: root.slideshow ? root.slideshow.aspectRatio : undefined
            topRadius: root.corner
        }
        Rectangle {
            y: parent.height / 2
            width: parent.width
            height: parent.height - y
            visible: summary.firstSlide !== null
            gradient: Gradient {
                GradientStop {
                    position: 0
                    color: "transparent"
                }
                GradientStop {
                    position: 1
                    color: Theme.pictureShade
                }
            }
        }
        Loader {
            anchors.fill: parent
            active: summary.firstSlide === null
            source: "EmptySlideshowPicture.qml"
        }
    }
    Item {
        anchors.fill: parent
        anchors.topMargin: preview.height
        anchors.leftMargin: Theme.padding
        anchors.rightMargin: Theme.padding

        Column {
            anchors.verticalCenter: parent.verticalCenter
            anchors.left: parent.left
            anchors.right: chevron.left
            anchors.rightMargin: 8
            spacing: 4

            ElidedText {
                id: slideCount
                objectName: "cardSlideCount"
                width: parent.width
                text: qsTr("%1 Slides").arg(summary.slideCount)
                font.pixelSize: Theme.caption
                font.weight: Font.Medium
            }
            ElidedText {
                objectName: "cardShape"
                width: parent.width
                text: summary.shapeName
                color: Theme.secondary
                font.pixelSize: Theme.caption2
            }
        }
        Symbol {
            id: chevron
            anchors.verticalCenter: parent.verticalCenter
            anchors.right: parent.right
            name: "chevron.right"
            size: Theme.smallSymbol
            color: Theme.secondary
        }
    }
    CardFrame {
        anchors.fill: parent
        part: CardFrame.Border
        radius: root.corner
        color: Theme.separator
    }
    FocusRing {
        distance: 3
        radius: root.corner + 3
        visible: root.isMarked
    }
    HoverHandler {
        id: hover
    }
    ClickHandler {
        onTapped: root.chosen()
    }
    ClickHandler {
        acceptedButtons: Qt.RightButton
        onTapped: (event) => root.menuRequested(event.position)
    }
}
