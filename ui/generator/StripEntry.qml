import QtQuick
import Mosslantern.Common
import Mosslantern.Slide
import Mosslantern.Generator

/// A small preview of one entry.
Item {
    id: root

    required property int index
    required property string mainText
    required property string subtitle
    required property Asset asset
    required property LivePreview preview
    required property SlideshowGenerator generator
    readonly property bool isCurrent: index === preview.index

    signal chosen

    objectName: "stripEntry" + index
    implicitHeight: 120
    Accessible.role: Accessible.ListItem
    Accessible.name: qsTr("Slide %1").arg(index + 1)
    Accessible.description: mainText
    Accessible.selected: isCurrent
    Accessible.onPressAction: chosen()

    LiveSlideThumbnail {
        id: thumbnail
        anchors.centerIn: parent
        height: 120
        mainText: root.mainText
        subtitle: root.subtitle
        asset: root.asset
        style: root.generator.style
        aspectRatio: root.preview.aspectRatio
    }
    RoundedArea {
        anchors.fill: thumbnail
        anchors.margins: -1.5
        radius: Theme.thumbnailRadius + 1.5
        borderColor: Theme.blue
        borderWidth: 3
        opacity: root.isCurrent ? 1 : 0
        visible: opacity > 0

        Behavior on opacity {
            NumberAnimation {
                duration: Theme.quick
            }
        }
    }
    ClickHandler {
        onTapped: root.chosen()
    }
}
