pragma ComponentBehavior: Bound

import QtQuick
import Mosslantern.Common

/// Shows that something is under way: spokes that go round in steps, so that waiting costs little.
Item {
    id: root

    property color color: Theme.secondary
    /// Goes round smoothly, also while the interface is at work on something else.
    property bool isSmooth: false
    readonly property int spokes: 8
    property int step: 0

    implicitWidth: 20
    implicitHeight: 20
    Accessible.role: Accessible.Animation
    Accessible.name: qsTr("In progress")

    Timer {
        interval: 110
        repeat: true
        running: root.visible && !root.isSmooth
        onTriggered: root.step = (root.step + 1) % root.spokes
    }

    RotationAnimator {
        target: root
        from: 0
        to: 360
        duration: 1000
        loops: Animation.Infinite
        running: root.visible && root.isSmooth
    }

    Repeater {
        model: root.spokes

        Item {
            id: spoke

            required property int index

            anchors.fill: parent
            rotation: index * 360 / root.spokes
            opacity: 1 - ((root.step - index + root.spokes) % root.spokes) / root.spokes * 0.85

            Rectangle {
                width: Math.max(2, parent.width / 10)
                height: parent.height * 0.28
                radius: width / 2
                anchors.horizontalCenter: parent.horizontalCenter
                color: root.color
                antialiasing: true
            }
        }
    }
}
