import QtQuick
import QtQuick.Templates as T
import Mosslantern.Common
import Mosslantern.Generator

/// The generator's panel, the live preview and the strip of all entries side by side.
FocusScope {
    id: root

    required property ScreenContext context
    required property SlideshowsView screen

    GeneratorPanel {
        id: panel
        width: 320
        height: parent.height
        context: root.context
        panel: root.screen.panel
    }
    Rectangle {
        anchors.left: panel.right
        width: 1
        height: parent.height
        color: Theme.separator
    }
    T.SplitView {
        anchors.fill: parent
        anchors.leftMargin: panel.width + 1
        orientation: Qt.Horizontal
        handle: SplitHandle {}

        LivePreviewPane {
            T.SplitView.fillWidth: true
            T.SplitView.minimumWidth: 300
            preview: root.screen.preview
            isGenerating: root.screen.generator.isGenerating
        }
        SlideStrip {
            T.SplitView.preferredWidth: 170
            T.SplitView.minimumWidth: 150
            T.SplitView.maximumWidth: 320
            preview: root.screen.preview
            generator: root.screen.generator
        }
    }
}
