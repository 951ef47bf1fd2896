import QtQuick
import QtQuick.Templates as T
import Mosslantern.Common
import Mosslantern.Library
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

    /// Whether the window may close: everything is saved, or is lost with the user's consent. Asks for it otherwise.
    function mayClose(): bool {
        const may = losesChanges || saving.save()
        if (!may)
            unsaved.setSource("UnsavedAlert.qml", {"status": saving, "visible": true})
        return may
    }

    /// Whether it was confirmed that changes that cannot be saved are lost.
    property bool losesChanges: false

    function quitWithoutSaving() {
        losesChanges = true
        Qt.quit()
    }

    SaveStatus {
        id: saving
        context: root.context
    }

    AppCommands {
        id: commands
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

    /// The editor of one slideshow.
    function showSlideshowEditor(slideshow: Slideshow) {
        sheets.setSource("../Editor/SlideshowDetailSheet.qml", {"context": context, "slideshow": slideshow, "visible": true})
    }

    /// What showContentLibrary() works on.
    property string contentText

    /// The template library on a text of its own, for developers and tests.
    function showContentLibrary() {
        sheets.setSource("../Library/ContentLibrarySheet.qml", {"context": context, "textInput": contentText, "visible": true})
        const sheet = sheets.item as ContentLibrarySheet
        sheet.textInputChanged.connect(() => contentText = sheet.textInput)
    }

    // What is seldom seen is made when it is asked for, and compiled only then: nothing that runs at the start may name
    // its types.
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
    Loader {
        id: unsaved
        onLoaded: {
            const alert = item as UnsavedAlert
            alert.closed.connect(() => unsaved.setSource(""))
            alert.quitConfirmed.connect(root.quitWithoutSaving)
        }
    }
    Loader {
        id: sheets
        onLoaded: (item as ModalPanel).closed.connect(() => sheets.setSource(""))
    }

    function showSelectedScreen() {
        if (content.selectedIndex < 0)
            detail.setSource("")
        else
            detail.setSource(screens[content.selectedIndex], {"context": context})
    }
}
