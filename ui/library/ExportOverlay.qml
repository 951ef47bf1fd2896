import QtQuick
import Mosslantern.Common
import Mosslantern.Library

/// Lies over the gallery while a batch is exported and keeps the pointer and the keys away from it. When slides were left
/// out, it stays a little longer to tell; a click or a key ends that.
FocusScope {
    id: root

    required property GalleryView gallery

    visible: gallery.isExporting || gallery.isTellingOutcome
    Accessible.role: Accessible.AlertMessage
    Accessible.name: label.text
    Accessible.description: progress.text
    Keys.onPressed: (event) => {
        event.accepted = ![Qt.Key_Tab, Qt.Key_Backtab].includes(event.key)
        if (event.accepted && gallery.isTellingOutcome)
            gallery.forgetOutcome()
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.scrim
    }
    MouseArea {
        anchors.fill: parent
        acceptedButtons: Qt.AllButtons
        hoverEnabled: true
        onWheel: (wheel) => wheel.accepted = true
        onClicked: if (root.gallery.isTellingOutcome) root.gallery.forgetOutcome()
    }
    Column {
        anchors.centerIn: parent
        spacing: 16

        Spinner {
            anchors.horizontalCenter: parent.horizontalCenter
            width: 36
            height: 36
            visible: root.gallery.isExporting
            color: Theme.overlayText
            isStepping: false

            // Goes round while the interface is at work on the slides, too.
            RotationAnimator on rotation {
                from: 0
                to: 360
                duration: 1000
                loops: Animation.Infinite
            }
        }
        Column {
            anchors.horizontalCenter: parent.horizontalCenter
            spacing: 5

            Text {
                id: label
                objectName: "exportingLabel"
                anchors.horizontalCenter: parent.horizontalCenter
                text: root.gallery.isExporting ? qsTr("Exporting...") : qsTr("Some slides could not be written")
                color: Theme.overlayText
                style: Text.Outline
                styleColor: Theme.scrim
                font.family: Theme.family
                font.pixelSize: Theme.headline
                font.weight: Font.DemiBold
            }
            Text {
                id: progress
                objectName: "exportProgress"
                anchors.horizontalCenter: parent.horizontalCenter
                text: {
                    const written = qsTr("%1 of %2 slides written").arg(root.gallery.exportedSlides).arg(root.gallery.slidesToExport)
                    const leftOut = root.gallery.slidesLeftOut
                    return leftOut > 0 ? qsTr("%1, %2 could not be").arg(written).arg(leftOut) : written
                }
                color: Theme.overlayText
                style: Text.Outline
                styleColor: Theme.scrim
                font.family: Theme.family
                font.pixelSize: Theme.caption
            }
        }
    }
}
