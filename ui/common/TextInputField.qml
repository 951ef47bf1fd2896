import QtQuick
import Mosslantern.Common

/// One line of text to type, with a rounded border.
TextEditor {
    id: root

    isSingleLine: true
    label: placeholder
    sidePadding: 7
    padding: Math.max(0, (height - 4 - metrics.height) / 2)
    implicitWidth: 200
    implicitHeight: Theme.controlHeight

    FontMetrics {
        id: metrics
        font: root.font
    }
}
