import QtQuick
import QtQuick.Templates as T
import Mosslantern.Common

/// What all buttons have in common: the Return key presses them, too, and those who do not see them are told what they do.
T.Button {
    /// What it does, in words.
    property string label: text
    /// Whether a ring is to show that it has the keyboard.
    readonly property bool isMarked: activeFocus && InputMode.usesKeyboard

    focusPolicy: Qt.StrongFocus
    Accessible.role: Accessible.Button
    Accessible.name: label
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()
}
