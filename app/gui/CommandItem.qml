import Mosslantern.Common
import Mosslantern.App

/// A command in a menu.
ContextMenuItem {
    required property AppCommand command

    text: command.label
    shortcutText: command.nativeText
    onTriggered: command.activated()
}
