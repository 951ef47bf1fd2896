#pragma once

#include "model/rgba_color.h"

#include <QtGui/QColor>

#include <algorithm>
#include <array>

namespace mosslantern {

/// As red, green and blue, whatever model the colour was given in; the opacity comes along.
[[nodiscard]] inline RgbaColor toRgbaColor(const QColor &color)
{
    const QColor rgb = color.toRgb();
    return {rgb.redF(), rgb.greenF(), rgb.blueF(), rgb.alphaF()};
}

using ColorChoices = std::array<RgbaColor, 2>;

/// For the box of a boxed text: white, black.
inline constexpr ColorChoices boxColors{{{1, 1, 1, 1}, {0, 0, 0, 1}}};

/// For the border of a classic text: black, none.
inline constexpr ColorChoices borderColors{{{0, 0, 0, 1}, {0, 0, 0, 0}}};

/// Which choice a colour is, -1 when it is none of them.
[[nodiscard]] inline int choiceOf(const RgbaColor &color, const ColorChoices &choices)
{
    const auto found = std::ranges::find(choices, color);
    return found == choices.end() ? -1 : static_cast<int>(found - choices.begin());
}

} // namespace mosslantern
