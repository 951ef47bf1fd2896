#pragma once

#include "model/rgba_color.h"

#include <QtGui/QColor>

namespace mosslantern {

/// As red, green and blue, whatever model the colour was given in; the opacity comes along.
[[nodiscard]] inline RgbaColor toRgbaColor(const QColor &color)
{
    const QColor rgb = color.toRgb();
    return {rgb.redF(), rgb.greenF(), rgb.blueF(), rgb.alphaF()};
}

} // namespace mosslantern
