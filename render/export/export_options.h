#pragma once

#include "render/canvas.h"
#include "render/export/slide_format.h"

namespace mosslantern {

/// How slides are exported. As it is made, it stands for what an export writes when nothing is asked for.
struct ExportOptions
{
    static constexpr int widest = 8192;

    SlideEncoding encoding = {};
    std::optional<int> width = {};       // pixels, 1 to `widest`; none: 2 pixels per point
    std::optional<Corners> corners = {}; // none: rounded in PNG files, square in others

    /// What slides of this shape are drawn on: as many points as ever, whatever their size in pixels.
    [[nodiscard]] Canvas canvas(AspectRatio aspectRatio) const;
    [[nodiscard]] Corners drawnCorners() const;

    friend bool operator==(const ExportOptions &, const ExportOptions &) = default;
};

} // namespace mosslantern
