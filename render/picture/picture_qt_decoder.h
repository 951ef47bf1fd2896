#pragma once

#include "render/picture/picture_loader.h"

#include <QtCore/QIODevice>

namespace mosslantern {

/// Pictures of the formats that Qt reads: WebP, GIF, BMP and TIFF. `device` stands at its start.
[[nodiscard]] Result<Picture> decodeWithQt(QIODevice &device, PictureFormat format,
                                           const PictureRequest &request);
[[nodiscard]] Result<PictureInfo> readInfoWithQt(QIODevice &device, PictureFormat format);

} // namespace mosslantern
