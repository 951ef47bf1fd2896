import QtQuick
import Mosslantern.Common

Rectangle {
    width: parent ? parent.width : 0
    implicitHeight: 1
    color: Theme.faintLine
}
