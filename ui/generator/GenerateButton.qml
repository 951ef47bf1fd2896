import QtQuick
import Mosslantern.Common
import Mosslantern.Generator

/// Starts a run.
ControlButton {
    id: root

    required property GeneratorView panel
    readonly property bool isAiMode: panel.generator.isAiMode
    readonly property color ground: !panel.hasAssets ? Theme.unavailableGround : isAiMode ? Theme.purpleGround : Theme.accent

    topPadding: 12
    bottomPadding: 12
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    enabled: panel.canGenerate
    text: panel.generateText
    label: text.trim()
    onClicked: panel.generate()

    contentItem: SymbolLabel {
        symbol: !root.panel.hasAssets ? "exclamationmark.triangle" : root.isAiMode ? "sparkles" : "wand.and.stars"
        text: root.text
        color: root.enabled ? Theme.accentText : Theme.disabledAccentText
        weight: Font.DemiBold
        spacing: 8
    }
    background: RoundedArea {
        radius: Theme.buttonRadius
        color: root.enabled || !root.panel.hasAssets ? root.ground : Qt.alpha(root.ground, Theme.disabledOpacity)

        RoundedArea {
            anchors.fill: parent
            visible: root.enabled && (root.pressed || root.hovered)
            radius: Theme.buttonRadius
            color: root.pressed ? Theme.accentPressedOver : Theme.accentHoveredOver
        }
        FocusRing {
            radius: Theme.buttonRadius + distance
            visible: root.isMarked
        }
    }
}
