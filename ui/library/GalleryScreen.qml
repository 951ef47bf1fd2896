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
    Keys.onPressed: (event) => event.accepted = grid.current !== null && keys.take(event)

    /// The keyboard of the cards. It comes to them from wherever it is, first to the current one.
    ItemKeys {
        id: keys
        hasColumns: true
        onMovedBy: (cards) => root.move(() => grid.moveBy(cards))
        onMovedByRows: (rows) => root.move(() => grid.moveByRows(rows))
        onMovedByPages: (pages) => root.move(() => grid.moveByPages(pages))
        onMovedToEnd: (isLast) => root.move(() => grid.moveToEnd(isLast))
        onOpened: root.act(() => gallery.selectedSlideshow = grid.current)
        onSpacePressed: opened()
        onRemovalRequested: root.act(() => gallery.deleteSlideshow(grid.current))
        onMenuRequested: root.openMenu()
    }

    function move(step: var) {
        if (area.activeFocus)
            step()
        else
            grid.showCurrent()
        area.forceActiveFocus(Qt.TabFocusReason)
    }

    /// A card out of sight is only shown.
    function act(action: var) {
        if (area.activeFocus && grid.showCurrent())
            action()
    }

    function openMenu() {
        if (!area.activeFocus)
            return
        grid.showCurrent()
        for (let i = 0; i < cards.count; ++i) {
            const card = cards.itemAt(i) as SlideshowCard
            if (card.slideshow === grid.current)
                menu.openFor(card, Qt.point(card.width / 2, card.height / 2))
        }
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
