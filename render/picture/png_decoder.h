#pragma once

#include "render/picture/picture_loader.h"

#include <QtCore/QIODevice>

namespace mosslantern {

/// PNG pictures straight from libpng: row by row, so that of the largest only what is wanted is held, unless
/// it is interlaced. A file that ends within the wanted rows is an error.
[[nodiscard]] Result<Picture> decodePng(QIODevice &device, const PictureRequest &request);
[[nodiscard]] Result<PictureInfo> readPngInfo(QIODevice &device);

} // namespace mosslantern
