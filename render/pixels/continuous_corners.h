#pragma once

#include <QtGui/QPainterPath>

namespace mosslantern {

/// How much of an edge, in corner radii, a continuous corner takes up.
inline constexpr double continuousCornerExtent = 1.528665;

/// A rectangle whose corners of `radius` ease into the straight edges ("continuous" curvature): three cubic
/// curves a corner. The radius is limited so that two corners fit on each side.
[[nodiscard]] QPainterPath continuousRoundedRect(const QRectF &rect, double radius);

} // namespace mosslantern
