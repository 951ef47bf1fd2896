import QtQuick
import Mosslantern.Common

/// In place of the first slide of a slideshow that has none.
Item {
    clip: true

    RoundedArea {
        width: parent.width
        height: parent.height + 24
        radius: Theme.tileRadius
        color: Theme.unavailableGround
    }
    Symbol {
        anchors.centerIn: parent
        name: "photo.on.rectangle"
        size: Theme.largeTitle * 1.5
        color: Theme.faintSymbol
    }
}
