import QtQuick
import QtQuick.Templates as T
import Mosslantern.Common

/// Several lines of text to type, which scroll in a bordered area, or a single one. The Tab key leaves it.
FocusScope {
    id: root

    required property string label
    /// What is shown, unless the document is worked on itself.
    property string text
    property alias textDocument: area.textDocument
    property alias font: area.font
    property alias cursorPosition: area.cursorPosition
    property alias padding: area.padding
    property alias readOnly: area.readOnly
    property real sidePadding: padding
    /// One line: the Return key accepts it, and line breaks that are pasted become blanks.
    property bool isSingleLine: false
    /// How long the text may be when something has been pasted, in UTF-16 code units.
    property int pasteLimit: isSingleLine ? 1000 : 10000
    readonly property alias contentHeight: area.contentHeight
    property string placeholder
    property color borderColor: Theme.separator
    property color color: Theme.textBackground
    property real radius: Theme.controlRadius

    /// The user has changed the text into this one, or another has changed it in the document.
    signal textEdited(text: string)
    /// The Return key in a single line.
    signal accepted

    function selectAll() {
        area.selectAll()
    }

    property bool isTakingText: false

    function takeText() {
        const lines = PlainText.withLineFeeds(text)
        if (PlainText.of(area.textDocument) === lines)
            return
        show(lines)
    }

    function show(lines: string) {
        const caret = area.cursorPosition
        isTakingText = true
        area.text = lines
        isTakingText = false
        area.cursorPosition = Math.min(caret, area.length)
    }

    function takeTyped() {
        const typed = PlainText.of(area.textDocument)
        // A change of looks is told like one of the text.
        if (typed === PlainText.withLineFeeds(text))
            return
        const taken = isSingleLine ? typed.replace(/\n/g, " ") : typed
        if (taken !== typed)
            show(taken)
        textEdited(taken)
    }

    onTextChanged: takeText()

    Rectangle {
        anchors.fill: parent
        color: root.color
        border.color: area.activeFocus ? Theme.blue : root.borderColor
        border.width: area.activeFocus ? Theme.focusWidth : 1
        radius: root.radius
    }
    PasteLimit {
        target: area
        limit: root.pasteLimit
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
            wrapMode: root.isSingleLine ? TextEdit.NoWrap : TextEdit.Wrap
            Keys.onTabPressed: nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason)
            Keys.onBacktabPressed: nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason)
            onTextChanged: if (!root.isTakingText) root.takeTyped()
            Keys.onPressed: (event) => {
                if (event.key !== Qt.Key_Return && event.key !== Qt.Key_Enter)
                    return
                event.accepted = root.isSingleLine || (event.modifiers & Qt.ShiftModifier) !== 0
                if (root.isSingleLine) {
                    // A key that is still held from what opened the field accepts nothing.
                    if (!event.isAutoRepeat)
                        root.accepted()
                } else if (event.accepted) {
                    // Of itself this would insert a line separator, which is no line feed to those who read the text.
                    area.remove(area.selectionStart, area.selectionEnd)
                    area.insert(area.cursorPosition, "\n")
                }
            }
            Accessible.role: Accessible.EditableText
            Accessible.name: root.label
            Accessible.multiLine: !root.isSingleLine
            Accessible.readOnly: readOnly

            LineHighlighter {
                textDocument: area.textDocument
                font: area.font
            }
            Text {
                x: area.leftPadding
                y: area.topPadding
                width: area.width - 2 * x
                visible: area.length === 0 && area.preeditText === ""
                text: root.placeholder
                color: Theme.placeholder
                font: area.font
                textFormat: Text.PlainText
                wrapMode: root.isSingleLine ? Text.NoWrap : Text.Wrap
                elide: root.isSingleLine ? Text.ElideRight : Text.ElideNone
            }
        }
    }
}
