#pragma once

#include "model/slide_style.h"

namespace mosslantern {

/// Everything of a slide that its texts are drawn from.
struct SlideValues
{
    QString text;
    QString subtitle; // empty: no subtitle block
    SlideStyle style = {};

    friend bool operator==(const SlideValues &, const SlideValues &) = default;
};

} // namespace mosslantern
