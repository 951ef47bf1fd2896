#pragma once

#include "content/slideshow_generator.h"

#include <QtQml/qqml.h>

// The generator by name for the screens: the core does not know QML.

namespace mosslantern {

struct SlideshowGeneratorForQml
{
    Q_GADGET
    QML_FOREIGN(mosslantern::SlideshowGenerator)
    QML_NAMED_ELEMENT(SlideshowGenerator)
    QML_UNCREATABLE("SlideshowsView makes it.")
};

} // namespace mosslantern
