import QtQuick
import QtQuick.Templates as T
import Mosslantern.Common
import Mosslantern.Editor

/// A text field of several lines that grows with its text as far as it may, and scrolls from then on.
FocusScope {
    id: root

    required property string placeholder
    required property int minimumLines
    required property int maximumLines
    required property string text

    /// The user has changed the text into this one.
    signal textEdited(text: string)

    property bool isUpdating: false

    function takeText() {
        const lines = PlainText.withLineFeeds(text)
        if (PlainText.of(area.textDocument) === lines)
            return
        const caret = area.cursorPosition
        isUpdating = true
        area.text = lines
        isUpdating = false
        area.cursorPosition = Math.min(caret, area.length)
    }

    implicitHeight: Math.ceil(Math.min(Math.max(area.contentHeight, minimumLines * metrics.lineSpacing),
                                       maximumLines * metrics.lineSpacing)) + 12
    onTextChanged: takeText()
    Component.onCompleted: takeText()

    FontMetrics {
        id: metrics
        font: area.font
    }
    Rectangle {
        anchors.fill: parent
        color: Theme.textBackground
        border.color: area.activeFocus ? Theme.blue : Theme.separator
        border.width: area.activeFocus ? Theme.focusWidth : 1
        radius: Theme.controlRadius
    }
    Flickable {
        anchors.fill: parent
        anchors.margins: 2
        clip: true
        boundsBehavior: Flickable.StopAtBounds

        T.ScrollBar.vertical: ScrollIndicatorBar {}
        T.TextArea.flickable: T.TextArea {
            id: area
            objectName: root.objectName + "Area"
            implicitWidth: contentWidth + leftPadding + rightPadding
            implicitHeight: contentHeight + topPadding + bottomPadding
            topPadding: 4
            bottomPadding: 4
            leftPadding: 6
            rightPadding: 6
            focus: true
            color: Theme.primary
            selectionColor: Theme.accent
            selectedTextColor: Theme.accentText
            font.family: Theme.family
            font.pixelSize: Theme.body
            selectByMouse: true
            textFormat: TextEdit.PlainText
            wrapMode: TextEdit.Wrap
            Keys.onTabPressed: nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason)
            Keys.onBacktabPressed: nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason)
            onTextChanged: if (!root.isUpdating) root.textEdited(PlainText.of(textDocument))
            Accessible.role: Accessible.EditableText
            Accessible.name: root.placeholder

            Text {
                x: area.leftPadding
                y: area.topPadding
                visible: area.length === 0 && area.preeditText === ""
                text: root.placeholder
                color: Theme.placeholder
                font: area.font
            }
        }
    }
}
