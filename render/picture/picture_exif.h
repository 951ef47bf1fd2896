#pragma once

#include "render/picture/picture_format.h"
#include "render/picture/picture_orientation.h"

#include <QtCore/QByteArrayView>
#include <QtCore/QIODevice>

namespace mosslantern {

/// The orientation that EXIF data hold, which are a TIFF header and its directories, with or without
/// "Exif\0\0" in front; upright without one.
[[nodiscard]] Orientation exifOrientation(QByteArrayView exif);

/// The orientation in the EXIF chunk of a PNG or WebP file; upright without one. Leaves `device` at its
/// start.
[[nodiscard]] Orientation chunkOrientation(QIODevice &device, PictureFormat format);

} // namespace mosslantern
