#pragma once

#include "render/export/export_options.h"
#include "render/slide_values.h"

namespace mosslantern {

class Slide;

/// One slide to be drawn: its values as they were when the job was made, free of records.
struct SlideJob
{
    SlideValues values;
    Canvas canvas;
    QString picturePath; // empty: the slide has no picture
    Corners corners = Corners::rounded;
    SlideEncoding encoding = {};
    QSize frame = {}; // pixels of the larger picture that the slide stands in; empty without one

    [[nodiscard]] QSize pixelSize() const { return frame.isEmpty() ? canvas.pixelSize() : frame; }
};

[[nodiscard]] SlideValues slideValues(const Slide &slide);

/// The job that exports a slide of a slideshow of this shape.
[[nodiscard]] SlideJob exportJob(const SlideValues &values, const QString &picturePath,
                                 AspectRatio aspectRatio, const ExportOptions &options = {});
[[nodiscard]] SlideJob exportJob(const Slide &slide, AspectRatio aspectRatio,
                                 const ExportOptions &options = {});

} // namespace mosslantern
