import QtQuick
import Mosslantern.Common

/// A text field of several lines that grows with its text as far as it may, and scrolls from then on.
TextEditor {
    id: root

    required property int minimumLines
    required property int maximumLines

    padding: 4
    sidePadding: 6
    implicitHeight: Math.ceil(Math.min(Math.max(contentHeight, minimumLines * metrics.lineSpacing),
                                       maximumLines * metrics.lineSpacing)) + 12

    FontMetrics {
        id: metrics
        font: root.font
    }
}
