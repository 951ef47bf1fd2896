import QtQuick
import QtQuick.Templates as T
import Mosslantern.Common

/// Several lines of text to type, which scroll in a bordered area. The Tab key leaves it.
FocusScope {
    id: root

    required property string label
    /// What is shown, unless the document is worked on itself.
    property string text
    property alias textDocument: area.textDocument
    property alias font: area.font
    property alias cursorPosition: area.cursorPosition
    property alias padding: area.padding
    property real sidePadding: padding
    readonly property alias contentHeight: area.contentHeight
    property string placeholder
    property color borderColor: Theme.separator
    property color color: Theme.textBackground
    property real radius: Theme.controlRadius

    /// The user has changed the text into this one, or another has changed it in the document.
    signal textEdited(text: string)

    property bool isTakingText: false

    function takeText() {
        const lines = PlainText.withLineFeeds(text)
        if (PlainText.of(area.textDocument) === lines)
            return
        const caret = area.cursorPosition
        isTakingText = true
        area.text = lines
        isTakingText = false
        area.cursorPosition = Math.min(caret, area.length)
    }

    onTextChanged: takeText()

    Rectangle {
        anchors.fill: parent
        color: root.color
        border.color: area.activeFocus ? Theme.blue : root.borderColor
        border.width: area.activeFocus ? Theme.focusWidth : 1
        radius: root.radius
    }
    Flickable {
        id: flickable
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
            padding: 8
            leftPadding: root.sidePadding
            rightPadding: root.sidePadding
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
            onTextChanged: if (!root.isTakingText) root.textEdited(PlainText.of(textDocument))
            Keys.onPressed: (event) => {
                // Of itself this would insert a line separator, which is no line feed to those who read the text.
                if ((event.key === Qt.Key_Return || event.key === Qt.Key_Enter) && event.modifiers & Qt.ShiftModifier) {
                    area.remove(area.selectionStart, area.selectionEnd)
                    area.insert(area.cursorPosition, "\n")
                    event.accepted = true
                }
            }
            Accessible.role: Accessible.EditableText
            Accessible.name: root.label

            Text {
                x: area.leftPadding
                y: area.topPadding
                width: area.width - 2 * x
                visible: area.length === 0 && area.preeditText === ""
                text: root.placeholder
                color: Theme.placeholder
                font: area.font
                textFormat: Text.PlainText
                wrapMode: Text.Wrap
            }
        }
    }
}
