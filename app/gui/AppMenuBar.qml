import QtQuick
import QtQuick.Templates as T
import Mosslantern.Common
import Mosslantern.App
import Mosslantern.Update

T.MenuBar {
    id: root

    required property Window window
    required property SPUUpdater updater
    /// Read once: a feed is there from the start or not at all.
    readonly property bool canCheckForUpdates: updater.canCheckForUpdates()

    signal aboutRequested
    signal shortcutsRequested

    implicitHeight: 30
    leftPadding: 8
    delegate: AppMenuBarItem {}
    contentItem: Row {
        Repeater {
            model: root.contentModel
        }
    }
    background: Rectangle {
        color: Theme.sidebarBackground
        Rectangle {
            anchors.bottom: parent.bottom
            width: parent.width
            height: 1
            color: Theme.separator
        }
    }

    EditCommands {
        id: edit
    }

    ContextMenu {
        title: qsTr("&Mosslantern")
        width: 240

        ContextMenuItem {
            objectName: "about"
            text: qsTr("About Mosslantern")
            onTriggered: root.aboutRequested()
        }
        ContextMenuItem {
            objectName: "checkForUpdates"
            text: qsTr("Check for Updates...")
            enabled: root.canCheckForUpdates
            onTriggered: root.updater.checkForUpdates()
        }
        ContextMenuSeparator {}
        ContextMenuItem {
            objectName: "quit"
            text: qsTr("Quit Mosslantern")
            shortcutText: qsTr("Ctrl+Q")
            onTriggered: Qt.quit()
        }
    }
    ContextMenu {
        title: qsTr("&Edit")
        width: 220
        onAboutToShow: edit.capture(root.window.activeFocusItem)

        ContextMenuItem {
            text: qsTr("Undo")
            shortcutText: qsTr("Ctrl+Z")
            enabled: edit.canUndo
            onTriggered: edit.undo()
        }
        ContextMenuItem {
            text: qsTr("Redo")
            shortcutText: qsTr("Ctrl+Shift+Z")
            enabled: edit.canRedo
            onTriggered: edit.redo()
        }
        ContextMenuSeparator {}
        ContextMenuItem {
            text: qsTr("Cut")
            shortcutText: qsTr("Ctrl+X")
            enabled: edit.canCut
            onTriggered: edit.cut()
        }
        ContextMenuItem {
            text: qsTr("Copy")
            shortcutText: qsTr("Ctrl+C")
            enabled: edit.canCopy
            onTriggered: edit.copy()
        }
        ContextMenuItem {
            text: qsTr("Paste")
            shortcutText: qsTr("Ctrl+V")
            enabled: edit.canPaste
            onTriggered: edit.paste()
        }
        ContextMenuItem {
            text: qsTr("Delete")
            shortcutText: qsTr("Del")
            enabled: edit.canCut
            onTriggered: edit.deleteSelection()
        }
        ContextMenuSeparator {}
        ContextMenuItem {
            text: qsTr("Select All")
            shortcutText: qsTr("Ctrl+A")
            enabled: edit.canSelectAll
            onTriggered: edit.selectAll()
        }
    }
    ContextMenu {
        title: qsTr("&Window")
        width: 240

        ContextMenuItem {
            text: qsTr("Minimize")
            shortcutText: qsTr("Ctrl+M")
            onTriggered: root.window.showMinimized()
        }
        ContextMenuItem {
            text: root.window.visibility === Window.Maximized ? qsTr("Restore") : qsTr("Maximize")
            onTriggered: root.window.visibility === Window.Maximized ? root.window.showNormal() : root.window.showMaximized()
        }
        ContextMenuItem {
            text: root.window.visibility === Window.FullScreen ? qsTr("Leave Full Screen") : qsTr("Enter Full Screen")
            shortcutText: qsTr("F11")
            onTriggered: root.window.visibility === Window.FullScreen ? root.window.showNormal() : root.window.showFullScreen()
        }
    }
    ContextMenu {
        title: qsTr("&Help")
        width: 240

        ContextMenuItem {
            objectName: "keyboardShortcuts"
            text: qsTr("Keyboard Shortcuts")
            shortcutText: qsTr("F1")
            onTriggered: root.shortcutsRequested()
        }
    }

    Shortcut {
        sequence: "Ctrl+Q"
        onActivated: Qt.quit()
    }
    Shortcut {
        sequence: "Ctrl+M"
        onActivated: root.window.showMinimized()
    }
    Shortcut {
        sequence: "F11"
        onActivated: root.window.visibility === Window.FullScreen ? root.window.showNormal() : root.window.showFullScreen()
    }
    Shortcut {
        sequence: "F1"
        onActivated: root.shortcutsRequested()
    }
}
