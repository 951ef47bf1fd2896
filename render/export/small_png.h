#pragma once

#include "render/export/slide_encoder.h"

namespace mosslantern {

/// Makes a PNG file that is small rather than quickly made: the best filter for each row, libdeflate, and no
/// opacity where all is opaque. `paint` gives premultiplied RGBA.
[[nodiscard]] Result<QByteArray> encodeSmallPng(QSize size, const RowPainter &paint);

/// What it holds of a picture.
inline constexpr qint64 smallPngBytesPerPixel = 12;

} // namespace mosslantern
