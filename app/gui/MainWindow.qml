import QtQuick
import QtQuick.Templates as T
import Mosslantern.Common
import Mosslantern.Library
import Mosslantern.App
import Mosslantern.Update

T.ApplicationWindow {
    id: root

    required property ScreenContext context
    required property SPUUpdater updater
    /// In the order of the sidebar.
    readonly property list<string> screens: ["../Library/AssetLibraryScreen.qml", "../Library/CollectionsScreen.qml", "../Generator/SlideshowsScreen.qml"]

    /// Whether the keyboard was used last; known from the first event on.
    readonly property bool usesKeyboard: InputMode.usesKeyboard

    width: 1280
    height: 800 + menuBar.height
    minimumWidth: 1200
    minimumHeight: 700 + menuBar.height
    visible: false
    title: qsTr("Mosslantern")
    color: Theme.windowBackground
    menuBar: AppMenuBar {
        window: root
        updater: root.updater
        commands: commands
        onAboutRequested: sheets.setSource("AboutSheet.qml", {"visible": true})
    }
    footer: SaveErrorBar {
        status: saving
    }
    Component.onCompleted: showSelectedScreen()
    onClosing: (close) => {
        close.accepted = losesChanges || saving.save()
        if (!close.accepted)
            unsaved.setSource("UnsavedAlert.qml", {"status": saving, "visible": true})
    }

    /// Whether it was confirmed that changes that cannot be saved are lost.
    property bool losesChanges: false

    SaveStatus {
        id: saving
        context: root.context
    }

    AppCommands {
        id: commands
        window: root
        onIsSidebarShownChanged: root.keepDetailWidth()
        onShortcutsRequested: sheets.setSource("ShortcutsSheet.qml", {"commands": all, "visible": true})
    }
    PanelLook {
        window: Theme.windowBackground
        base: Theme.textBackground
        button: Theme.raisedBackground
        text: Theme.primary
        disabledText: Theme.disabled
        highlight: Theme.accent
        highlightedText: Theme.accentText
        fontSize: Theme.body
    }
    ContentView {
        id: content
        objectName: "contentView"
        onSelectedScreenChanged: root.showSelectedScreen()
    }

    T.SplitView {
        anchors.fill: parent
        orientation: Qt.Horizontal
        handle: SplitHandle {}

        Sidebar {
            id: sidebar
            content: content
            visible: commands.isSidebarShown
            T.SplitView.minimumWidth: 180
            T.SplitView.preferredWidth: 200
            T.SplitView.maximumWidth: 220
        }

        Item {
            T.SplitView.fillWidth: true

            Text {
                anchors.centerIn: parent
                visible: content.selectedIndex < 0
                text: qsTr("Select an item")
                color: Theme.primary
                font.family: Theme.family
                font.pixelSize: Theme.body
                Accessible.role: Accessible.StaticText
                Accessible.name: text
            }
            Loader {
                id: detail
                objectName: "detail"
                anchors.fill: parent
            }
        }
    }

    /// Makes room for the sidebar, or takes its room away, so that the detail column keeps its size, as far as the
    /// window may be narrower and the screen is wide enough. Gives back only what it took away.
    function keepDetailWidth() {
        const isFree = visibility === Window.Windowed
        if (!commands.isSidebarShown) {
            widthOfHidden = isFree ? Math.min(sidebar.width + 1, width - minimumWidth) : 0
            width -= widthOfHidden
        } else if (isFree) {
            const limit = Math.max(Screen.desktopAvailableWidth, minimumWidth + widthOfHidden)
            width = Math.max(width, Math.min(limit, width + widthOfHidden))
        }
    }

    /// By how much the window became narrower when the sidebar was hidden.
    property real widthOfHidden

    /// The editor of one slideshow.
    function showSlideshowEditor(slideshow: Slideshow) {
        sheets.setSource("../Editor/SlideshowDetailSheet.qml", {"context": context, "slideshow": slideshow, "visible": true})
    }

    /// What showContentLibrary() works on.
    property string contentText

    /// The template library on a text of its own, for developers and tests.
    function showContentLibrary() {
        sheets.setSource("../Library/ContentLibrarySheet.qml", {"context": context, "textInput": contentText, "visible": true})
    }

    // What is seldom seen is made when it is asked for.
    Loader {
        id: updates
    }
    Connections {
        target: root.updater
        function onIsShownChanged() {
            if (root.updater.isShown)
                updates.setSource("../Update/UpdateWindow.qml", {"updater": root.updater, "transientParent": root})
        }
    }
    Loader {
        id: unsaved
    }
    Connections {
        target: unsaved.item as UnsavedAlert
        ignoreUnknownSignals: true
        function onClosed() {
            unsaved.setSource("")
        }
        function onQuitConfirmed() {
            root.losesChanges = true
            Qt.quit()
        }
    }
    Loader {
        id: sheets
    }
    Connections {
        target: sheets.item as ModalPanel
        ignoreUnknownSignals: true
        function onClosed() {
            sheets.setSource("")
        }
    }
    Connections {
        target: sheets.item as ContentLibrarySheet
        ignoreUnknownSignals: true
        function onTextInputChanged() {
            root.contentText = (sheets.item as ContentLibrarySheet).textInput
        }
    }

    function showSelectedScreen() {
        if (content.selectedIndex < 0)
            detail.setSource("")
        else
            detail.setSource(screens[content.selectedIndex], {"context": context})
    }
}
