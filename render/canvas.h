#pragma once

#include "model/aspect_ratio.h"

#include <QtCore/QRectF>
#include <QtCore/QSizeF>

namespace mosslantern {

/// The surface that a slide is drawn on.
struct Canvas
{
    QSizeF size;           // points
    double pixelRatio = 1; // pixels per point

    [[nodiscard]] QSize pixelSize() const;
};

/// The canvas that a slide of this shape is exported on, at 2 pixels per point: 2160 × 3840, 960 × 1200 or
/// 240 × 240 pixels.
[[nodiscard]] Canvas exportCanvas(AspectRatio aspectRatio);

/// The largest rectangle of the shape that fits into `area`, centred in it.
[[nodiscard]] QRectF fittedCanvas(AspectRatio aspectRatio, const QRectF &area);

} // namespace mosslantern
