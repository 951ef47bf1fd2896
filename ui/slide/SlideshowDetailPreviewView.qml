import QtQuick
import Mosslantern.Common
import Mosslantern.Slide

/// The column of the canvas: the canvas of the selected slide, a new one for each.
Rectangle {
    id: root

    required property Slideshow slideshow
    required property int selectedSlideIndex
    /// The slide at that place; null when there is none.
    required property Slide slide
    readonly property SlideCanvas canvas: loader.item as SlideCanvas

    color: Theme.windowBackground
    clip: true
    onSlideChanged: showSlide()
    Component.onCompleted: {
        isComplete = true
        showSlide()
    }

    property bool isComplete: false

    function showSlide() {
        // Setting a source a second time makes a second canvas.
        if (!isComplete)
            return
        if (slide)
            loader.setSource("SlideCanvas.qml", {"slide": slide, "slideshow": slideshow, "backdrop": color})
        else
            loader.setSource("")
    }

    Loader {
        id: loader
        objectName: "canvasLoader"
        anchors.fill: parent
    }
}
