#pragma once

#include <QtGui/QColorSpace>
#include <QtGui/QImage>

namespace mosslantern {

/// Converts `image` from `space` to sRGB, unless that is what it is or the space is not known.
void convertToSrgb(QImage &image, const QColorSpace &space);

/// The colour space of the code points of ITU-T H.273 that HEIC and AVIF files carry: chromaticities of the
/// primaries and the white point, and the number of the transfer characteristic. High dynamic range (PQ, HLG)
/// is cut off at the brightness of diffuse white.
[[nodiscard]] QColorSpace codedColorSpace(QPointF white, QPointF red, QPointF green, QPointF blue,
                                          int transfer);

} // namespace mosslantern
