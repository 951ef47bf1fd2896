#pragma once

#include "model/rgba_color.h"
#include "render/pixels/alpha_plane.h"

#include <QtCore/QPointF>
#include <QtCore/QRectF>
#include <QtGui/QImage>

#include <vector>

namespace mosslantern {

/// A shadow cast by everything drawn so far. Lengths are points at text scale 1.
struct Shadow
{
    RgbaColor color;
    double radius = 0; // a Gaussian blur of standard deviation radius / 2
    QPointF offset;    // x to the right, y downwards
};

/// How far the shadows, cast one after another, reach beyond what casts them; pixels.
[[nodiscard]] double shadowReach(const std::vector<Shadow> &shadows, double pixelsPerPoint);

/// The largest standard deviation, in pixels, among the shadows' blurs.
[[nodiscard]] double widestBlur(const std::vector<Shadow> &shadows, double pixelsPerPoint);

/// Puts the shadows under `image` (premultiplied RGBA), in order, each cast by everything drawn so far,
/// earlier shadows included. `silhouette` is the opacity of what casts them; `area` the part of it, in its
/// own pixels, that `image` shows (the whole of it by default). Lengths grow with `pixelsPerPoint`, which
/// counts the silhouette's pixels.
void castShadows(QImage &image, AlphaPlane silhouette, const std::vector<Shadow> &shadows,
                 double pixelsPerPoint, const QRectF &area = {});

} // namespace mosslantern
