#include "render/export/export_options.h"

namespace mosslantern {

Canvas ExportOptions::canvas(AspectRatio aspectRatio) const
{
    Canvas canvas = exportCanvas(aspectRatio);
    if (width)
        canvas.pixelRatio = *width / canvas.size.width();
    return canvas;
}

Corners ExportOptions::drawnCorners() const
{
    return corners.value_or(encoding.format == SlideFormat::png ? Corners::rounded : Corners::square);
}

} // namespace mosslantern
