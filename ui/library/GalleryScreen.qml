pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Mosslantern.Common
import Mosslantern.Library
import Mosslantern.Slide

/// Every generated slideshow as a card, batch by batch.
FocusScope {
    id: root

    required property ScreenContext context

    focus: true
    Accessible.role: Accessible.Pane
    Accessible.name: qsTr("History")
    Keys.onPressed: (event) => {
        const isPlain = (event.modifiers & ~Qt.KeypadModifier) === Qt.NoModifier
        const wantsMenu = event.key === Qt.Key_Menu && isPlain
            || event.key === Qt.Key_F10 && event.modifiers === Qt.ShiftModifier
        event.accepted = wantsMenu ? openMenu() : isPlain && (move(event.key) || act(event))
    }

    /// Moves the keyboard from card to card, or to the cards from wherever it is.
    function move(key: int): bool {
        const cards = key === Qt.Key_Left ? -1 : key === Qt.Key_Right ? 1 : 0
        const rows = key === Qt.Key_Up ? -1 : key === Qt.Key_Down ? 1 : 0
        const pages = key === Qt.Key_PageUp ? -1 : key === Qt.Key_PageDown ? 1 : 0
        const goesToEnd = key === Qt.Key_Home || key === Qt.Key_End
        if (cards === 0 && rows === 0 && pages === 0 && !goesToEnd || grid.current === null)
            return false
        if (!area.activeFocus)
            grid.showCurrent()
        else if (cards !== 0)
            grid.moveBy(cards)
        else if (rows !== 0)
            grid.moveByRows(rows)
        else if (pages !== 0)
            grid.moveByPages(pages)
        else
            grid.moveToEnd(key === Qt.Key_End)
        area.forceActiveFocus(Qt.TabFocusReason)
        return true
    }

    /// What a key does with the current card. A card out of sight is only shown.
    function act(event: KeyEvent): bool {
        const opens = [Qt.Key_Return, Qt.Key_Enter, Qt.Key_Space].includes(event.key)
        const deletes = [Qt.Key_Delete, Qt.Key_Backspace].includes(event.key)
        if (!opens && !deletes || !area.activeFocus)
            return false
        if (grid.current === null || !grid.showCurrent())
            return true
        if (opens)
            gallery.selectedSlideshow = grid.current
        else
            gallery.deleteSlideshow(grid.current)
        return true
    }

    function openMenu(): bool {
        if (!area.activeFocus || grid.current === null)
            return false
        grid.showCurrent()
        for (let i = 0; i < cards.count; ++i) {
            const card = cards.itemAt(i) as SlideshowCard
            if (card.slideshow === grid.current)
                menu.openFor(card, Qt.point(card.width / 2, card.height / 2))
        }
        return true
    }

    function point(slideshow: Slideshow) {
        grid.setCurrent(slideshow)
        area.forceActiveFocus(Qt.MouseFocusReason)
    }

    GalleryView {
        id: gallery
        objectName: "gallery"
        context: root.context
        onSelectedSlideshowChanged: root.showSelectedSlideshow()
    }
    GalleryGrid {
        id: grid
        gallery: gallery
        width: area.width
        viewTop: area.contentY
        viewHeight: area.height
        onScrollRequested: (top) => area.contentY = top
        onCellsMove: movement.restart()
    }
    Timer {
        id: movement
        interval: 350
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.windowBackground
    }
    Flickable {
        id: area
        objectName: "galleryArea"
        anchors.fill: parent
        contentHeight: grid.contentHeight
        clip: true
        focus: true
        activeFocusOnTab: grid.current !== null
        enabled: !overlay.visible
        boundsBehavior: Flickable.StopAtBounds
        Accessible.role: Accessible.List
        Accessible.name: root.Accessible.name
        T.ScrollBar.vertical: ScrollIndicatorBar {}

        Repeater {
            model: grid.headers

            GalleryHeader {
                required property rect place

                x: place.x
                y: place.y
                width: place.width
                height: place.height
                onExportRequested: (button) => {
                    overlay.opener = button
                    gallery.exportBatch(name)
                }
                onDeletionRequested: gallery.askToDeleteBatch(name)

                Behavior on y {
                    enabled: movement.running
                    GlideAnimation {}
                }
            }
        }
        Repeater {
            id: cards
            model: grid.cards

            SlideshowCard {
                required property rect place

                x: place.x
                y: place.y
                width: place.width
                height: place.height
                barHeight: grid.barHeight
                isMarked: area.activeFocus && InputMode.usesKeyboard && slideshow === grid.current
                onChosen: {
                    root.point(slideshow)
                    gallery.selectedSlideshow = slideshow
                }
                onMenuRequested: (position) => {
                    root.point(slideshow)
                    menu.openFor(this, position)
                }

                Behavior on x {
                    enabled: movement.running
                    GlideAnimation {}
                }
                Behavior on y {
                    enabled: movement.running
                    GlideAnimation {}
                }
            }
        }
    }
    ContentUnavailableView {
        anchors.fill: parent
        visible: gallery.slideshows.count === 0
        symbol: "photo.on.rectangle.angled"
        title: qsTr("No Slideshows")
        description: qsTr("Generate some magic on the left!")
    }
    ExportOverlay {
        id: overlay
        anchors.fill: parent
        run: gallery.exportRun
        returnsTo: area
    }

    ContextMenu {
        id: menu

        property Slideshow slideshow

        function openFor(card: SlideshowCard, position: point) {
            slideshow = card.slideshow
            popup(card, position)
        }

        ContextMenuItem {
            objectName: "deleteSlideshow"
            text: qsTr("Delete")
            symbol: "trash"
            isDestructive: true
            shortcutText: qsTr("Del")
            onTriggered: gallery.deleteSlideshow(menu.slideshow)
        }
    }
    DeleteBatchAlert {
        gallery: gallery
    }
    SheetLoader {
        id: editor
        onClosed: gallery.selectedSlideshow = null
    }

    function showSelectedSlideshow() {
        const sheet = editor.item as ModalPanel
        if (gallery.selectedSlideshow)
            editor.setSource("../Editor/SlideshowDetailSheet.qml", {"context": context, "slideshow": gallery.selectedSlideshow, "visible": true})
        else if (sheet)
            sheet.close()
    }
}
