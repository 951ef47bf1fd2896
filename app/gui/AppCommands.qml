import QtQuick
import Mosslantern.App

/// The commands that have keys, apart from those for editing text.
Item {
    id: root

    property bool isSidebarShown: true

    /// Before it filled the screen.
    property bool wasMaximized: false

    signal shortcutsRequested

    readonly property AppCommand toggleSidebar: AppCommand {
        label: root.isSidebarShown ? qsTr("Hide Sidebar") : qsTr("Show Sidebar")
        sequence: "Ctrl+Alt+S"
        enabled: root.Window.active
        onActivated: root.isSidebarShown = !root.isSidebarShown
    }
    readonly property AppCommand minimize: AppCommand {
        label: qsTr("Minimize")
        sequence: "Ctrl+M"
        enabled: root.Window.active
        onActivated: root.Window.window.showMinimized()
    }
    readonly property AppCommand toggleFullScreen: AppCommand {
        label: root.Window.visibility === Window.FullScreen ? qsTr("Leave Full Screen") : qsTr("Enter Full Screen")
        sequence: "F11"
        enabled: root.Window.active
        onActivated: {
            const isFull = root.Window.visibility === Window.FullScreen
            if (!isFull)
                root.wasMaximized = root.Window.visibility === Window.Maximized
            if (isFull && root.wasMaximized)
                root.Window.window.showMaximized()
            else if (isFull)
                root.Window.window.showNormal()
            else
                root.Window.window.showFullScreen()
        }
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
            if (root.Window.window.close())
                Qt.quit()
        }
    }

    readonly property list<AppCommand> all: [toggleSidebar, minimize, toggleFullScreen, showShortcuts, quit]
}
