#pragma once

#include "model/rgba_color.h"
#include "model/text_style.h"

#include <QtCore/QPointF>
#include <QtCore/QString>

namespace mosslantern {

/// Everything of a slide that its texts are drawn from. Positions are the centres of the blocks, as fractions
/// of the canvas (origin top left, y downwards); scales are factors around them.
struct SlideValues
{
    QString text;
    QString subtitle; // empty: no subtitle block
    TextStyle style = TextStyle::classic;
    QPointF textPos{0.5, 0.5};
    double textScale = 1;
    QPointF subtitlePos{0.5, 0.8};
    double subtitleScale = 1;
    RgbaColor boxColor{1, 1, 1, 1};

    friend bool operator==(const SlideValues &, const SlideValues &) = default;
};

} // namespace mosslantern
