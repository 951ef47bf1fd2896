#pragma once

#include "render/picture/picture_loader.h"

#include <QtCore/QByteArray>

namespace mosslantern {

/// The primary picture of a HEIC or AVIF file. libheif applies its rotation, mirroring and cropping itself;
/// EXIF data in such a file describe nothing more.
[[nodiscard]] Result<Picture> decodeHeif(const QByteArray &bytes, const PictureRequest &request);
[[nodiscard]] Result<PictureInfo> readHeifInfo(const QByteArray &bytes, PictureFormat format);

} // namespace mosslantern
