import QtQuick
import QtQuick.Templates as T
import Mosslantern.Common
import Mosslantern.Generator

/// The library of saved slide-content texts, over the window. Bind `textInput` both ways; show it afresh for
/// each use.
SheetView {
    id: root

    required property ScreenContext context
    property alias textInput: library.textInput

    width: Math.max(800, Math.min(920, parent.width - 2 * margins))
    height: Math.max(500, Math.min(620, parent.height - 2 * margins))
    title: qsTr("Content Library")
    onOpened: list.forceActiveFocus(Qt.OtherFocusReason)

    ContentLibraryView {
        id: library
        context: root.context
        onCloseRequested: root.close()
    }

    headerItems: PushButton {
        objectName: "contentLibraryDone"
        text: qsTr("Done")
        onClicked: root.close()
    }

    T.SplitView {
        anchors.fill: parent
        handle: SplitHandle {}

        TemplateList {
            id: list
            library: library
            T.SplitView.preferredWidth: 260
            T.SplitView.minimumWidth: 200
            T.SplitView.maximumWidth: 300
        }
        TemplatePane {
            library: library
            T.SplitView.fillWidth: true
            T.SplitView.minimumWidth: 400
        }
    }

    SaveTemplateSheet {
        library: library
    }
    AlertView {
        id: question
        title: qsTr("Delete Template?")
        message: library.selectedTemplate
                 ? qsTr("Are you sure you want to delete '%1'?").arg(library.selectedTemplate.name) : ""
        visible: library.showingDeleteConfirmation
        onClosed: library.showingDeleteConfirmation = false

        buttons: [
            PushButton {
                objectName: "cancelDeleteTemplate"
                width: question.buttonWidth
                text: qsTr("Cancel")
                focus: true
                onClicked: library.showingDeleteConfirmation = false
            },
            PushButton {
                objectName: "confirmDeleteTemplate"
                width: question.buttonWidth
                text: qsTr("Delete")
                isDestructive: true
                onClicked: library.deleteSelectedTemplate()
            }
        ]
    }
}
