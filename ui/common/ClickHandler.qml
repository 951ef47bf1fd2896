import QtQuick

/// A click, however long its button is held. What ends elsewhere than it began is none.
TapHandler {
    // In seconds; Qt drops a tap that is held as long as this.
    longPressThreshold: 24 * 60 * 60
}
