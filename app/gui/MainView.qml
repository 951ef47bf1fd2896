import QtQuick
import QtQuick.Templates as T
import Mosslantern.Common
import Mosslantern.Generator
import Mosslantern.App
import Mosslantern.Update

/// All that the main window shows. It needs no window, and is made before there is one.
FocusScope {
    id: root

    required property ScreenContext context
    required property SPUUpdater updater
    /// In the order of the sidebar.
    readonly property list<string> screens: ["../Library/AssetLibraryScreen.qml", "../Library/CollectionsScreen.qml", "../Generator/SlideshowsScreen.qml"]

    /// Whether the keyboard was used last; known from the first event on.
    readonly property bool usesKeyboard: InputMode.usesKeyboard

    readonly property bool isSidebarShown: commands.isSidebarShown
    readonly property real sidebarWidth: sidebar.width

    /// What the window puts above it and below it.
    readonly property AppMenuBar menuBar: AppMenuBar {
        updater: root.updater
        commands: commands
        onAboutRequested: sheets.setSource("AboutSheet.qml", {"visible": true})
    }
    readonly property SaveErrorBar footer: SaveErrorBar {
        status: saving
    }

    implicitWidth: 1280
    implicitHeight: 800
    focus: true
    Component.onCompleted: showSelectedScreen()

    /// Whether the window may close: nothing is under way and everything is saved, or is lost with the user's consent.
    /// Asks for it otherwise.
    function mayClose(): bool {
        if (!abandonsWork && (context.work.isExporting || context.work.isGenerating)) {
            if (running.status === Loader.Null)
                running.setSource("RunningWorkAlert.qml", {"work": context.work, "visible": true})
            return false
        }
        const may = losesChanges || saving.save()
        if (!may)
            unsaved.setSource("UnsavedAlert.qml", {"status": saving, "visible": true})
        return may
    }

    /// Whether it was confirmed that changes that cannot be saved are lost.
    property bool losesChanges: false
    /// Whether it was confirmed that what is under way is not finished.
    property bool abandonsWork: false

    SaveStatus {
        id: saving
        context: root.context
    }

    AppCommands {
        id: commands
        // The keyboard does not stay in what cannot be seen.
        onIsSidebarShownChanged: {
            if (!isSidebarShown)
                detail.forceActiveFocus(Qt.OtherFocusReason)
        }
        onShortcutsRequested: sheets.setSource("ShortcutsSheet.qml", {"commands": all, "visible": true})
    }
    ThemedPanels {}
    ContentView {
        id: content
        objectName: "contentView"
        onSelectedScreenChanged: root.showSelectedScreen()
    }

    InputLayer {
        anchors.fill: parent

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
    }

    /// The screen at this place in the list, and a tab of it unless that is negative. Nothing that waits for an answer or
    /// is under way is left for it.
    function showScreen(index: int, tab: int) {
        if (T.Overlay.overlay.visible || context.work.isExporting || context.work.isGenerating)
            return
        content.selectedIndex = index
        if (tab >= 0)
            detail.item["currentTab"] = tab
    }

    /// The editor of one slideshow.
    function showSlideshowEditor(slideshow: Slideshow) {
        sheets.setSource("../Editor/SlideshowDetailSheet.qml", {"context": context, "slideshow": slideshow, "visible": true})
    }

    /// What showContentLibrary() works on.
    property string contentText

    /// The template library on a text of its own, for developers and tests.
    function showContentLibrary() {
        sheets.setSource("../Generator/ContentLibrarySheet.qml", {"context": context, "textInput": contentText, "visible": true})
    }

    // What is seldom seen is made when it is asked for.
    Loader {
        id: updates
    }
    Connections {
        target: root.updater
        function onIsShownChanged() {
            if (root.updater.isShown)
                updates.setSource("../Update/UpdateWindow.qml", {"updater": root.updater, "transientParent": root.Window.window})
        }
    }
    SheetLoader {
        id: running
    }
    Connections {
        target: running.item
        ignoreUnknownSignals: true
        function onQuitConfirmed() {
            const question = running.item as ModalPanel
            root.abandonsWork = true
            question.close()
            commands.quit.activated()
        }
    }
    SheetLoader {
        id: unsaved
        onClosed: root.abandonsWork = false
    }
    Connections {
        target: unsaved.item
        ignoreUnknownSignals: true
        function onQuitConfirmed() {
            root.losesChanges = true
            Qt.quit()
        }
    }
    SheetLoader {
        id: sheets
    }
    Connections {
        target: sheets.item
        ignoreUnknownSignals: true
        function onTextInputChanged() {
            root.contentText = (sheets.item as ContentLibrarySheet).textInput
        }
    }

    function propertiesOf(screen: int): var {
        const makesSlideshows = screen === 2
        return makesSlideshows ? {"context": context, "historyScreen": Qt.resolvedUrl("../Library/GalleryScreen.qml")} : {"context": context}
    }

    function showSelectedScreen() {
        if (content.selectedIndex < 0)
            detail.setSource("")
        else
            detail.setSource(screens[content.selectedIndex], propertiesOf(content.selectedIndex))
    }
}
