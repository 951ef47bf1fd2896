#pragma once

#include "render/picture/picture_format.h"

#include <QtCore/QIODevice>

namespace mosslantern {

/// Whether a GIF or BMP file ends before its first picture does; of a BMP file up to an eighth may be
/// missing. Their decoders leave the rest black without a word; those of the other formats report it, and
/// false is returned here. The device may stand anywhere and stands at its start afterwards.
[[nodiscard]] bool isCutShort(QIODevice &device, PictureFormat format);

} // namespace mosslantern
