import QtQuick
import QtQuick.Templates as T
import Mosslantern.Common
import Mosslantern.Editor

/// The slideshow editor over the window, nearly as large as that. What is being edited is written when it closes.
ModalPanel {
    id: root

    required property ScreenContext context
    required property Slideshow slideshow

    width: parent ? Math.min(parent.width, Math.max(1200, parent.width - 48)) : 0
    height: parent ? Math.min(parent.height, Math.max(800, parent.height - 48)) : 0
    margins: 0
    // Escape belongs to the screen: it does not close the sheet while a text is being edited.
    closePolicy: T.Popup.NoAutoClose
    onAboutToShow: screen.setSource("SlideshowDetailScreen.qml", {"context": context, "slideshow": slideshow, "focus": true})
    onClosed: screen.setSource("")

    Loader {
        id: screen
        anchors.fill: parent
        focus: true
    }
    Connections {
        target: screen.item as SlideshowDetailScreen

        function onDismissed() {
            root.close()
        }
    }
}
