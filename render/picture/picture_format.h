#pragma once

#include <QtCore/QByteArrayView>

#include <optional>

namespace mosslantern {

/// The formats of pictures that are accepted; everything else is not a picture.
enum class PictureFormat { Jpeg, Png, WebP, Gif, Bmp, Tiff, Heic, Avif };

/// The format that the first bytes of a file announce; 128 bytes are enough.
[[nodiscard]] std::optional<PictureFormat> pictureFormat(QByteArrayView bytes);

} // namespace mosslantern
