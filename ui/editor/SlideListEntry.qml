import QtQuick
import Mosslantern.Common
import Mosslantern.Editor

/// A slide in the list of slides.
Item {
    id: root

    required property int index
    required property Slide modelData
    required property var aspectRatio
    required property bool isSelected
    /// 0 when not selected, 1 when selected, and between them on the way.
    property real emphasis: isSelected ? 1 : 0

    signal chosen

    objectName: "slideEntry" + index
    implicitHeight: 120
    scale: 1 + 0.02 * emphasis
    Accessible.role: Accessible.ListItem
    Accessible.name: qsTr("Slide %1").arg(index + 1)
    Accessible.description: modelData ? modelData.text : ""
    Accessible.selected: isSelected
    Accessible.onPressAction: chosen()

    Behavior on emphasis {
        NumberAnimation {
            duration: 300
            easing.type: Easing.OutCubic
        }
    }

    SoftShadow {
        anchors.fill: preview
        anchors.margins: -margin
        margin: 8
        cornerRadius: 8
        blurRadius: 4
        strength: 0.33
        opacity: root.emphasis
    }
    SlidePreviewView {
        id: preview
        anchors.centerIn: parent
        width: Math.round(120 * widthToHeight)
        height: 120
        slide: root.modelData
        aspectRatio: root.aspectRatio
    }
    RoundedArea {
        anchors.fill: preview
        anchors.margins: -1.5 * root.emphasis
        radius: 8 + 1.5 * root.emphasis
        borderColor: Theme.blue
        borderWidth: 3 * root.emphasis
    }
    TapHandler {
        onTapped: root.chosen()
    }
}
