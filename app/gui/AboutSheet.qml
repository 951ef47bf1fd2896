import QtQuick
import Mosslantern.Common
import Mosslantern.App

AlertView {
    id: root

    title: qsTr("Mosslantern")
    message: qsTr("Version %1\n\nText-on-image slideshows for short videos.\n\nFonts: Inter, Nunito, JetBrains Mono. Symbols: Lucide. Made with Qt, which is used under the GNU Lesser General Public License, version 3.").arg(Qt.application.version)
    width: 620

    LegalNotices {
        id: notices
    }
    fields: TextEditor {
        objectName: "legalNotices"
        width: root.availableWidth
        height: 240
        label: qsTr("Copyright and licenses")
        text: notices.text
        readOnly: true
    }
    buttons: PushButton {
        objectName: "closeAbout"
        width: root.buttonWidth
        text: qsTr("OK")
        isProminent: true
        focus: true
        onClicked: root.close()
    }
}
