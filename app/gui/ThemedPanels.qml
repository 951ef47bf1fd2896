import QtQuick
import Mosslantern.Common
import Mosslantern.App

/// The theme for the panels, and on some desktops the window's frame, that Qt draws itself.
PanelLook {
    window: Theme.windowBackground
    base: Theme.textBackground
    button: Theme.raisedBackground
    text: Theme.primary
    disabledText: Theme.disabled
    highlight: Theme.accent
    highlightedText: Theme.accentText
    fontSize: Theme.body
}
