#pragma once

#include "model/aspect_ratio.h"
#include "render/export/slide_format.h"

#include <QtCore/QSize>

#include <span>

namespace mosslantern {

/// What a platform takes of a slideshow; docs/platforms.md says where each value comes from.
struct Platform
{
    QLatin1StringView name;  // in arguments
    QLatin1StringView title; // for people
    QSize frame;             // pixels that it shows best; slides of other shapes that it takes are as wide
    /// The shapes that it takes, width by height.
    double narrowest = 0;
    double widest = 0;
    SlideFormat format = SlideFormat::jpeg;
    qint64 mostBytes = 0;
    int mostSlides = 0;
    bool isDocument = false; // one PDF document of all slides
    bool isFilm = false;     // an MP4 film

    [[nodiscard]] bool takes(AspectRatio aspectRatio) const;
};

/// All that are known, in the order of lists.
[[nodiscard]] std::span<const Platform> allPlatforms();

/// The one of this name, null where there is none.
[[nodiscard]] const Platform *platformNamed(QStringView name);

} // namespace mosslantern
