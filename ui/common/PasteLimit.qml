import QtQuick
import Mosslantern.Common

/// Bounds what a text item takes at once, and says so where something is too long.
Item {
    id: root

    required property Item target
    required property int limit

    anchors.fill: parent

    function inWords(number: int): string {
        return Number(number).toLocaleString(Qt.locale(), "f", 0)
    }

    PasteGuard {
        target: root.target
        limit: root.limit
        onRefused: (length) => {
            notice.text = qsTr("This text may have %1 characters; with what you insert it would have %2. Nothing was inserted.")
                          .arg(root.inWords(root.limit)).arg(root.inWords(length))
            notice.open()
        }
    }
    ToolTipView {
        id: notice
        objectName: "pasteRefusal"
        delay: 0
        timeout: 10000
    }
}
