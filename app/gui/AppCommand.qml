import QtQuick

/// A command of the window and its keys: for the keyboard, the menus and the list of shortcuts alike. It works
/// while a sheet is open, too.
Shortcut {
    required property string label

    context: Qt.ApplicationShortcut
    autoRepeat: false
}
