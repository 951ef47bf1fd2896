import QtQuick
import QtQuick.Templates as T
import Mosslantern.Common
import Mosslantern.Generator

/// Starts a run.
T.Button {
    id: root

    required property GeneratorView panel
    readonly property bool isAiMode: panel.generator.isAiMode
    readonly property color ground: !panel.hasAssets ? "#4d8e8e93" : isAiMode ? Theme.purpleGround : Theme.accent

    topPadding: 12
    bottomPadding: 12
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    focusPolicy: Qt.StrongFocus
    enabled: panel.canGenerate
    text: panel.generateText
    Accessible.role: Accessible.Button
    Accessible.name: text.trim()
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()
    onClicked: panel.generate()

    contentItem: SymbolLabel {
        symbol: !root.panel.hasAssets ? "exclamationmark.triangle" : root.isAiMode ? "sparkles" : "wand.and.stars"
        text: root.text
        color: root.enabled ? "white" : "#99ffffff"
        weight: Font.DemiBold
        spacing: 8
    }
    background: RoundedArea {
        radius: 8
        color: root.enabled || !root.panel.hasAssets ? root.ground : Qt.rgba(root.ground.r, root.ground.g, root.ground.b, 0.4)

        RoundedArea {
            anchors.fill: parent
            radius: 8
            color: !root.enabled ? "transparent" : root.pressed ? "#30000000" : root.hovered ? "#14ffffff" : "transparent"
        }
        FocusRing {
            radius: 10
            visible: root.activeFocus && InputMode.usesKeyboard
        }
    }
}
