import QtQuick
import Mosslantern.Common

ContentUnavailableView {
    required property ScreenContext context

    symbol: "rectangle.split.2x1"
    title: qsTr("Slideshows")
}
