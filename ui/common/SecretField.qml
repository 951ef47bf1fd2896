import QtQuick
import QtQuick.Templates as T
import Mosslantern.Common

/// One line of text to type that nobody is to read, with a rounded border.
T.TextField {
    id: root

    required property string label

    implicitWidth: 200
    implicitHeight: Theme.controlHeight
    leftPadding: 9
    rightPadding: 9
    verticalAlignment: TextInput.AlignVCenter
    color: enabled ? Theme.primary : Theme.disabled
    placeholderTextColor: Theme.placeholder
    selectionColor: Theme.accent
    selectedTextColor: Theme.accentText
    font.family: Theme.family
    font.pixelSize: Theme.body
    selectByMouse: true
    echoMode: TextInput.Password
    inputMethodHints: Qt.ImhSensitiveData | Qt.ImhNoPredictiveText | Qt.ImhHiddenText
    Accessible.role: Accessible.EditableText
    Accessible.name: label

    Text {
        anchors.fill: parent
        anchors.leftMargin: root.leftPadding
        anchors.rightMargin: root.rightPadding
        visible: root.length === 0 && root.preeditText === ""
        text: root.placeholderText
        color: root.placeholderTextColor
        font: root.font
        elide: Text.ElideRight
        verticalAlignment: root.verticalAlignment
    }

    PasteLimit {
        target: root
        limit: 1000
    }

    background: Rectangle {
        color: Theme.textBackground
        border.color: root.activeFocus ? Theme.blue : Theme.separator
        border.width: root.activeFocus ? Theme.focusWidth : 1
        radius: Theme.controlRadius
    }
}
