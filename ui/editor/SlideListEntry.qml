import QtQuick
import Mosslantern.Common
import Mosslantern.Editor
import Mosslantern.Slide

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

    // A spring of response 0.3 s and damping fraction 0.825, until it has settled.
    Behavior on emphasis {
        NumberAnimation {
            duration: 400
            easing.type: Easing.BezierSpline
            easing.bezierCurve: [0.05, 0, 0.1, 0.222, 0.15, 0.394, 0.217, 0.622, 0.283, 0.791, 0.35, 0.878,
                                 0.442, 0.999, 0.533, 1.006, 0.625, 1.01, 0.75, 1.014, 0.875, 1, 1, 1]
        }
    }

    SoftShadow {
        anchors.fill: preview
        anchors.margins: -margin
        margin: 4
        cornerRadius: Theme.thumbnailRadius
        blurRadius: 2
        strength: 0.33
    }
    SoftShadow {
        anchors.fill: preview
        anchors.margins: -margin
        margin: 8
        cornerRadius: Theme.thumbnailRadius
        blurRadius: 4
        strength: 0.33
        opacity: Math.min(1, root.emphasis)
    }
    SlidePreviewView {
        id: preview
        anchors.centerIn: parent
        height: root.implicitHeight
        slide: root.modelData
        aspectRatio: root.aspectRatio
    }
    RoundedArea {
        anchors.fill: preview
        anchors.margins: -1.5 * root.emphasis
        radius: Theme.thumbnailRadius + 1.5 * root.emphasis
        borderColor: Theme.blue
        borderWidth: 3 * root.emphasis
    }
    ClickHandler {
        onTapped: root.chosen()
    }
}
