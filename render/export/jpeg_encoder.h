#pragma once

#include "render/export/slide_encoder.h"

namespace mosslantern {

/// Makes a JPEG file with colours in full resolution (4:4:4) and the profile of sRGB. The fourth byte of the
/// painted pixels does not count. `quality`: 1 to 100.
[[nodiscard]] Result<QByteArray> encodeJpeg(QSize size, const RowPainter &paint, int quality,
                                            bool progressive);

} // namespace mosslantern
