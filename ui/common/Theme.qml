pragma Singleton

import QtQuick

/// Every colour, font size and distance of the interface.
QtObject {
    // Surfaces, from the deepest to the highest.
    readonly property color textBackground: "#121415"
    readonly property color sidebarBackground: "#16191a"
    readonly property color windowBackground: "#1b1e1f"
    readonly property color controlBackground: "#24282a"
    readonly property color raisedBackground: "#2a2f31"
    readonly property color cardBackground: Qt.alpha(controlBackground, 0.5)
    readonly property color separator: "#34393b"

    // Text and symbols.
    readonly property color primary: "#eceeec"
    readonly property color secondary: "#9da4a3"
    readonly property color placeholder: "#8a9191"
    readonly property color faintLine: "#1affffff"
    readonly property color material: "#d92a2f31"
    readonly property color disabled: "#5e6566"
    /// Beneath the tint of a button that is drawn in one colour.
    readonly property color tintedGround: "#000000"
    readonly property color numberText: "#b3ffffff"
    readonly property color accentText: "#ffffff"
    readonly property color disabledAccentText: "#99ffffff"
    readonly property color titleText: "#ffffff"
    readonly property color overlayText: "#ffffff"

    // Meaning.
    // White text on the accent, and on its red counterpart, has a contrast of at least 4.5.
    readonly property color accent: "#2f6fe0"
    readonly property color accentHovered: "#2863cd"
    readonly property color accentPressed: "#2259ba"
    readonly property color destructive: "#d0433c"
    readonly property color blue: "#5b99f8"
    readonly property color red: "#ff837b"
    readonly property color green: "#32d158"
    readonly property color orange: "#ff9f0a"
    readonly property color tickBackground: "#ffffff"
    readonly property color lantern: "#e8b85c"
    readonly property color purple: "#bf5af2"
    readonly property color purpleGround: "#9a3fd0"
    readonly property real disabledOpacity: 0.4

    // Where there is nothing to be shown or done.
    readonly property color gray: "#8e8e93"
    readonly property color unavailableGround: "#4d8e8e93"
    readonly property color emptyCanvas: "#268e8e93"
    readonly property color faintSymbol: "#4dffffff"
    readonly property color faintOutline: "#338e8e93"

    // States laid over a surface.
    readonly property color hovered: "#0fffffff"
    readonly property color pressed: "#1cffffff"
    readonly property color selected: "#24ffffff"
    readonly property color selectedText: "#593f82f0"
    readonly property color accentHoveredOver: "#1a000000"
    readonly property color accentPressedOver: "#30000000"
    readonly property color pictureShade: "#4d000000"
    readonly property color scrim: "#80000000"
    readonly property color deepScrim: "#b3000000"
    readonly property color dropTarget: "#142f6fe0"
    readonly property color knobHovered: "#ffffff"
    readonly property color knobPressed: "#d5d9d8"
    readonly property color knobOutline: "#40000000"
    readonly property color scrollThumb: "#38ffffff"
    readonly property color scrollThumbHovered: "#60ffffff"
    readonly property color scrollThumbPressed: "#80ffffff"

    // Font sizes in points of the screen.
    readonly property string family: "Inter"
    readonly property string monospaced: "JetBrains Mono"
    readonly property int caption2: 10
    readonly property int caption: 11
    readonly property int body: 13
    readonly property int headline: 13
    readonly property int title3: 15
    readonly property int title2: 18
    readonly property int largeTitle: 26

    // Sides of symbols that stand beside no text of one of these sizes.
    readonly property int smallSymbol: 14
    readonly property int symbol: 16
    readonly property int largeSymbol: 18
    readonly property int emptySymbol: 40

    // Distances.
    readonly property int padding: 16
    readonly property int widePadding: 20
    readonly property int spacing: 8
    readonly property int wideSpacing: 12
    readonly property int controlHeight: 28
    readonly property int headerHeight: 52
    readonly property int captionHeight: 14
    readonly property int smallRadius: 4
    readonly property int controlRadius: 6
    readonly property int buttonRadius: 8
    readonly property int thumbnailRadius: 8
    readonly property int blockRadius: 8
    readonly property int cardRadius: 10
    readonly property int tileRadius: 12
    readonly property int canvasRadius: 12
    readonly property int sheetRadius: 12
    readonly property int focusWidth: 2
    readonly property int quick: 120
}
