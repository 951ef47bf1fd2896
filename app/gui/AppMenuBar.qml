pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Mosslantern.Common
import Mosslantern.App
import Mosslantern.Update

T.MenuBar {
    id: root

    required property SPUUpdater updater
    required property AppCommands commands
    /// Read once: a feed is there from the start or not at all.
    readonly property bool canCheckForUpdates: updater.canCheckForUpdates()

    signal aboutRequested

    implicitHeight: 30
    leftPadding: 8
    delegate: AppMenuBarItem {
        isBold: menu === applicationMenu
    }
    contentItem: Row {
        Repeater {
            model: root.contentModel
        }
    }
    background: BarBackground {
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
    Shortcut {
        sequence: "F10"
        onActivated: {
            const first = root.itemAt(0)
            first.forceActiveFocus(Qt.ShortcutFocusReason)
            first.triggered()
        }
    }

    ContextMenu {
        id: applicationMenu
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
        CommandItem {
            objectName: "quit"
            command: root.commands.quit
        }
    }
    ContextMenu {
        title: qsTr("&Edit")
        width: 220
        onAboutToShow: edit.capture(root.Window.activeFocusItem)

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
            objectName: "editDelete"
            text: qsTr("Delete")
            shortcutText: qsTr("Del")
            enabled: edit.canDelete
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
        title: qsTr("&View")
        width: 240

        CommandItem {
            objectName: "toggleSidebar"
            command: root.commands.toggleSidebar
        }
        CommandItem {
            command: root.commands.toggleFullScreen
        }
    }
    ContextMenu {
        title: qsTr("&Window")
        width: 240

        CommandItem {
            command: root.commands.minimize
        }
        ContextMenuItem {
            text: root.Window.visibility === Window.Maximized ? qsTr("Restore") : qsTr("Maximize")
            onTriggered: root.Window.visibility === Window.Maximized ? root.Window.window.showNormal() : root.Window.window.showMaximized()
        }
    }
    ContextMenu {
        title: qsTr("&Help")
        width: 240

        CommandItem {
            command: root.commands.showShortcuts
        }
        ContextMenuItem {
            text: qsTr("About Mosslantern")
            onTriggered: root.aboutRequested()
        }
    }
}
