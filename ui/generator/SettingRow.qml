import QtQuick

/// The name of a setting and, at the trailing edge, its control.
Item {
    id: root

    required property string symbol
    required property string text
    property alias weight: label.weight
    default property alias control: holder.data

    width: parent ? parent.width : 0
    implicitHeight: Math.max(label.implicitHeight, holder.childrenRect.height)

    SettingLabel {
        id: label
        anchors.verticalCenter: parent.verticalCenter
        symbol: root.symbol
        text: root.text
    }
    Item {
        id: holder
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        width: childrenRect.width
        height: childrenRect.height
    }
}
