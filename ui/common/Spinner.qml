import QtQuick
import Mosslantern.Common

/// Shows that something is under way: spokes that go round in steps, so that waiting costs little.
SpinnerSpokes {
    implicitWidth: 20
    implicitHeight: 20
    color: Theme.secondary
    Accessible.role: Accessible.Animation
    Accessible.name: qsTr("In progress")
}
