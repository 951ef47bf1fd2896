#pragma once

#include "render/canvas.h"
#include "render/slide_values.h"

namespace mosslantern {

class Slide;

/// One slide to be drawn: its values as they were when the job was made, free of records.
struct SlideJob
{
    SlideValues values;
    Canvas canvas;
    QString picturePath; // empty: the slide has no picture
};

[[nodiscard]] SlideValues slideValues(const Slide &slide);

/// The job that exports `slide` in its slideshow's shape.
[[nodiscard]] SlideJob exportJob(const Slide &slide, AspectRatio aspectRatio);

} // namespace mosslantern
