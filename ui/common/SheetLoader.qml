import QtQuick

/// Makes a sheet or an alert when it is asked for and drops it when it has closed. The sheet's type is compiled only
/// then, unless something that runs earlier names it.
Loader {
    id: root

    /// The sheet has closed and is gone.
    signal closed

    Connections {
        target: root.item
        ignoreUnknownSignals: true
        function onClosed() {
            root.setSource("")
            root.closed()
        }
    }
}
