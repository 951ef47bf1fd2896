import QtQuick
import Mosslantern.Common
import Mosslantern.Slide

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
        onFirstResponderResigned: editable.content.forceActiveFocus(Qt.OtherFocusReason)
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
            if (editable.isBesideTexts(root, tap.position))
                canvas.endEditing()
        }
    }
    EditableSlide {
        id: editable
        anchors.fill: parent
        mainBlock: mainBlock
        subtitleBlock: subtitleBlock
        hasSubtitle: canvas.localSubtitle !== ""
        frame: root.frame
        backdrop: root.backdrop
        contentName: "canvasContent"
        mainTextName: "mainText"
        subtitleTextName: "subtitleText"

        CanvasBackground {
            objectName: "canvasBackground"
            anchors.fill: parent
            slide: root.slide
            canvasSize: root.canvasSize
        }
    }
}
