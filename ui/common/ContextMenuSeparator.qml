import QtQuick
import QtQuick.Templates as T
import Mosslantern.Common

T.MenuSeparator {
    implicitHeight: 9
    padding: 4
    contentItem: Rectangle {
        color: Theme.separator
    }
}
