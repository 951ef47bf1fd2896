#pragma once

#include "model/text_style.h"
#include "render/pixels/shadows.h"

#include <vector>

namespace mosslantern {

/// How a text style draws the lines of one block.
struct StyleLook
{
    RgbaColor textColor;
    RgbaColor lineBackground;    // fills the padded line box; opacity 0: nothing
    std::vector<Shadow> shadows; // in the order in which they are cast; clear ones left out
};

/// Text size in points on a canvas `canvasWidth` points wide, before the style's own factor: 32 for 350
/// points, in proportion, from 3.2 to 96.
[[nodiscard]] double baseFontSize(double canvasWidth);

/// Text size in points of a style on a canvas `canvasWidth` points wide.
[[nodiscard]] double fontSize(TextStyle style, double canvasWidth);

/// Black or white, whichever reads on `boxColor`: black where its components average more than 0.5, or
/// where it is no colour of the device (a component that is not a number).
[[nodiscard]] RgbaColor contrastColor(const RgbaColor &boxColor);

/// The look of a block; `filledSubtitle`: the block is a subtitle whose text is not empty.
[[nodiscard]] StyleLook styleLook(TextStyle style, const RgbaColor &boxColor, bool filledSubtitle);

} // namespace mosslantern
