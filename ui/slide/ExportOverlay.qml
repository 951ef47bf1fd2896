import QtQuick
import Mosslantern.Common
import Mosslantern.Slide

/// Lies over a screen while its slides are exported and keeps the pointer and the keys away from it. When slides were left
/// out, it stays a little longer to tell; a click or a key ends that.
FocusScope {
    id: root

    required property ExportRun run
    /// What has the focus afterwards, in the scope that both are in, if what began it is gone.
    required property Item returnsTo
    /// What began it.
    property Item opener

    objectName: "exportOverlay"
    visible: run.isRunning || run.isTellingOutcome
    onVisibleChanged: {
        if (visible)
            focus = true
        else if (focus)
            (opener ?? returnsTo).focus = true
    }
    Accessible.role: Accessible.AlertMessage
    Accessible.name: label.text
    Accessible.description: progress.text
    Keys.onPressed: (event) => {
        event.accepted = ![Qt.Key_Tab, Qt.Key_Backtab].includes(event.key)
        if (event.accepted && run.isTellingOutcome)
            run.forgetOutcome()
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
        onClicked: if (root.run.isTellingOutcome) root.run.forgetOutcome()
    }
    Column {
        anchors.centerIn: parent
        spacing: 16

        Spinner {
            anchors.horizontalCenter: parent.horizontalCenter
            width: 36
            height: 36
            visible: root.run.isRunning
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
                text: root.run.isRunning ? qsTr("Exporting...") : qsTr("Some slides could not be written")
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
                    const written = qsTr("%1 of %2 slides written").arg(root.run.written).arg(root.run.total)
                    const leftOut = root.run.leftOut
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
