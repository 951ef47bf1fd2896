#pragma once

#include "render/picture/picture_loader.h"

#include <QtCore/QIODevice>

namespace mosslantern {

/// JPEG pictures straight from libjpeg, which spares the inverse transform, upsampling and colour conversion
/// of all that is not wanted: only the needed columns and rows are computed, at 1/1, 1/2, 1/4 or 1/8 of the
/// size, and they are written to their upright places at once.
///
/// A file that ends early is accepted when less than an eighth of the wanted rows is missing or, in a
/// progressive file, when only refinements are. CMYK pictures are converted without regard of their profile.
[[nodiscard]] Result<Picture> decodeJpeg(QIODevice &device, const PictureRequest &request);
[[nodiscard]] Result<PictureInfo> readJpegInfo(QIODevice &device);

} // namespace mosslantern
