import QtQuick

/// How cards move to their new places when others are gone.
NumberAnimation {
    duration: 350
    easing.type: Easing.InOutQuad
}
