#pragma once

#include "render/picture/picture_loader.h"
#include "render/picture/picture_orientation.h"

#include <QtGui/QColorSpace>
#include <QtGui/QImage>

namespace mosslantern {

/// The number of pixels, in each direction, that reduced() may make one where `scale` (at most 1) is enough.
[[nodiscard]] int reductionFactor(double scale);

/// `image` with each block of `factor` × `factor` pixels averaged into one; blocks at the right and bottom
/// edge may be smaller. The pixels are RGBX8888 or RGBA8888_Premultiplied.
[[nodiscard]] QImage reduced(const QImage &image, int factor);

/// The picture that `request` wants of `stored`, a whole decoded picture in the colours of `space` that
/// `orientation` turns upright.
[[nodiscard]] Result<Picture> fitPicture(QImage stored, Orientation orientation, const QColorSpace &space,
                                         const PictureRequest &request);

} // namespace mosslantern
