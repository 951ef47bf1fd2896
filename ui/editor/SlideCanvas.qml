import QtQuick
import Mosslantern.Common
import Mosslantern.Editor

/// The slide that is being edited, in the middle of its area.
FocusScope {
    id: root

    required property Slide slide
    required property Slideshow slideshow
    property color backdrop: Theme.windowBackground
    readonly property alias canvas: canvas
    readonly property rect frame: canvas.frame
    readonly property size canvasSize: Qt.size(frame.width, frame.height)

    // What is under way when the canvas goes away is not lost.
    Component.onDestruction: {
        for (const block of [mainBlock, subtitleBlock]) {
            block.endMagnify()
            block.endDrag()
        }
    }

    SlideCanvasView {
        id: canvas
        slide: root.slide
        slideshow: root.slideshow
        area: Qt.size(root.width, root.height)
        onFirstResponderResigned: content.forceActiveFocus(Qt.OtherFocusReason)
    }
    DraggableTextView {
        id: mainBlock
        objectName: "mainBlock"
        text: canvas.localText
        style: canvas.textStyle
        position: canvas.localTextPos
        scale: canvas.localTextScale
        containerSize: root.canvasSize
        boxColor: canvas.boxColor
        isEditable: true
        onTextChanged: canvas.localText = text
        onPositionChanged: canvas.localTextPos = position
        onScaleChanged: canvas.localTextScale = scale
    }
    DraggableTextView {
        id: subtitleBlock
        objectName: "subtitleBlock"
        text: canvas.localSubtitle
        style: canvas.textStyle
        isSubtitle: true
        position: canvas.localSubtitlePos
        scale: canvas.localSubtitleScale
        containerSize: root.canvasSize
        boxColor: canvas.boxColor
        isEditable: true
        onTextChanged: canvas.localSubtitle = text
        onPositionChanged: canvas.localSubtitlePos = position
        onScaleChanged: canvas.localSubtitleScale = scale
    }

    ClickHandler {
        onTapped: (tap) => {
            const point = content.mapFromItem(root, tap.position.x, tap.position.y)
            if (!mainBlock.contains(point) && !(canvas.localSubtitle !== "" && subtitleBlock.contains(point)))
                canvas.endEditing()
        }
    }
    CanvasArea {
        id: content
        objectName: "canvasContent"
        frame: root.frame
        clip: true

        CanvasBackground {
            id: background
            objectName: "canvasBackground"
            anchors.fill: parent
            slide: root.slide
            canvasSize: root.canvasSize
        }
        TextBlockItem {
            objectName: "mainDrawing"
            anchors.fill: parent
            block: mainBlock
        }
        TextBlockItem {
            objectName: "subtitleDrawing"
            anchors.fill: parent
            visible: canvas.localSubtitle !== ""
            block: subtitleBlock
        }
        EditableText {
            objectName: "mainText"
            block: mainBlock
            label: qsTr("Main Text")
        }
        EditableText {
            objectName: "subtitleText"
            visible: canvas.localSubtitle !== ""
            onVisibleChanged: if (!visible) block.isFocused = false
            block: subtitleBlock
            label: qsTr("Subtitle")
        }
    }
    CanvasFrame {
        anchors.fill: content
        backdrop: root.backdrop
    }
}
