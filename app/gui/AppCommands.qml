import QtQuick
import Mosslantern.App

/// The commands that have keys, apart from those for editing text.
Item {
    id: root

    required property Window window
    property bool isSidebarShown: true

    signal shortcutsRequested

    readonly property AppCommand toggleSidebar: AppCommand {
        label: root.isSidebarShown ? qsTr("Hide Sidebar") : qsTr("Show Sidebar")
        sequence: "Ctrl+Alt+S"
        enabled: root.window.active
        onActivated: root.isSidebarShown = !root.isSidebarShown
    }
    readonly property AppCommand minimize: AppCommand {
        label: qsTr("Minimize")
        sequence: "Ctrl+M"
        enabled: root.window.active
        onActivated: root.window.showMinimized()
    }
    readonly property AppCommand toggleFullScreen: AppCommand {
        label: root.window.visibility === Window.FullScreen ? qsTr("Leave Full Screen") : qsTr("Enter Full Screen")
        sequence: "F11"
        enabled: root.window.active
        onActivated: root.window.visibility === Window.FullScreen ? root.window.showNormal() : root.window.showFullScreen()
    }
    readonly property AppCommand showShortcuts: AppCommand {
        label: qsTr("Keyboard Shortcuts")
        sequence: "F1"
        context: Qt.WindowShortcut
        onActivated: root.shortcutsRequested()
    }
    readonly property AppCommand quit: AppCommand {
        label: qsTr("Quit Mosslantern")
        sequence: "Ctrl+Q"
        // An application with widgets ends even if a window refuses to close.
        onActivated: {
            if (root.window.close())
                Qt.quit()
        }
    }

    readonly property list<AppCommand> all: [toggleSidebar, minimize, toggleFullScreen, showShortcuts, quit]
}
