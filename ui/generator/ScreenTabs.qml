import QtQuick
import Mosslantern.Common

/// The tabs of a screen, in the middle of the bar at its top. The arrow keys move from tab to tab.
FocusScope {
    id: root

    required property list<string> titles
    required property list<string> symbols
    property int currentIndex: 0

    implicitHeight: 44

    SegmentedPicker {
        objectName: "screenTab"
        anchors.centerIn: parent
        width: 4 + 116 * root.titles.length
        height: Theme.controlHeight + 2
        focus: true
        radius: Theme.controlRadius + 1
        label: root.titles[root.currentIndex]
        options: root.titles
        symbols: root.symbols
        optionRole: Accessible.PageTab
        currentIndex: root.currentIndex
        onPicked: (index) => root.currentIndex = index
    }
    Rectangle {
        anchors.bottom: parent.bottom
        width: parent.width
        height: 1
        color: Theme.separator
    }
}
