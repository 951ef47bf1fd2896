import Mosslantern.Common

/// A toolbar's button: a symbol whose label is its tool tip.
SymbolButton {
    implicitWidth: 34
    implicitHeight: Theme.controlHeight + 2
}
