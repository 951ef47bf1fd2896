import QtQuick
import Mosslantern.Common

Rectangle {
    implicitHeight: 1
    color: Theme.faintLine
}
