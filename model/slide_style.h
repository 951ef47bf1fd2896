#pragma once

#include "model/text_style.h"

#include <QtCore/QString>

namespace mosslantern {

/// The eight values that say how the texts of a slide look. A position is the centre of a text block as
/// fractions of the canvas width (x) and height (y, downwards); a scale is a factor around that centre.
struct SlideStyle
{
    double textX = 0.5;
    double textY = 0.5;
    double subtitleX = 0.5;
    double subtitleY = 0.8;
    double textScale = 1.0;
    double subtitleScale = 1.0;
    TextStyle textStyle = TextStyle::classic;
    /// In the form of hexFromColor().
    QString boxColorHex = QStringLiteral("FFFFFF");

    friend bool operator==(const SlideStyle &, const SlideStyle &) = default;
};

} // namespace mosslantern
