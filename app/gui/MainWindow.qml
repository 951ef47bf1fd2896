import QtQuick
import QtQuick.Templates as T
import Mosslantern.Common
import Mosslantern.App

T.ApplicationWindow {
    id: root

    /// What it shows.
    required property MainView view

    width: view.implicitWidth
    height: view.implicitHeight + menuBar.height
    minimumWidth: 1200
    minimumHeight: 700 + menuBar.height
    visible: false
    title: qsTr("Mosslantern")
    color: Theme.windowBackground
    menuBar: view.menuBar
    footer: view.footer
    onClosing: (close) => close.accepted = view.mayClose()
    Component.onCompleted: {
        view.parent = contentItem
        view.anchors.fill = contentItem
    }

    Connections {
        target: root.view
        function onIsSidebarShownChanged() {
            root.keepDetailWidth()
        }
    }

    /// Makes room for the sidebar, or takes its room away, so that the detail column keeps its size, as far as the
    /// window may be narrower and the screen is wide enough. Gives back only what it took away.
    function keepDetailWidth() {
        const isFree = visibility === Window.Windowed
        if (!view.isSidebarShown) {
            widthOfHidden = isFree ? Math.min(view.sidebarWidth + 1, width - minimumWidth) : 0
            width -= widthOfHidden
        } else if (isFree) {
            const limit = Math.max(Screen.desktopAvailableWidth, minimumWidth + widthOfHidden)
            width = Math.max(width, Math.min(limit, width + widthOfHidden))
        }
    }

    /// By how much the window became narrower when the sidebar was hidden.
    property real widthOfHidden
    /// What it lacks because of that.
    readonly property real missingWidth: view.isSidebarShown ? 0 : widthOfHidden
}
