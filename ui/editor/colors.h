#pragma once

#include "model/rgba_color.h"

#include <QtGui/QColor>

namespace mosslantern {

[[nodiscard]] inline RgbaColor toRgbaColor(const QColor &color)
{
    const QColor rgb = color.toRgb();
    return {rgb.redF(), rgb.greenF(), rgb.blueF(), rgb.alphaF()};
}

} // namespace mosslantern
