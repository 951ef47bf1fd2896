#pragma once

namespace mosslantern {

/// How a slide ends at its corners: cut off round, with the shadow of the canvas behind them, or not at all.
enum class Corners { rounded, square };

} // namespace mosslantern
