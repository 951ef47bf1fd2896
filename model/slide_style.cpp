#include "model/slide_style.h"

namespace mosslantern {

SlideStyle withChanges(SlideStyle style, const SlideStyle &before, const SlideStyle &after)
{
    forEachStyleValue([&](const char *, auto value) {
        if (before.*value != after.*value)
            style.*value = after.*value;
    });
    return style;
}

} // namespace mosslantern
