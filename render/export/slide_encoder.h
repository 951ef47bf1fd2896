#pragma once

#include "model/error.h"
#include "render/export/slide_format.h"

#include <QtCore/QByteArray>
#include <QtCore/QSize>

#include <functional>

namespace mosslantern {

/// Paints rows of a slide: from which on, how many, and where to, as premultiplied RGBA. Rows are asked for
/// from the top to the bottom, a band at a time.
using RowPainter = std::function<void(int, int, uint8_t *)>;

/// Makes a file of a slide of `size` pixels, in any format but PNG by bands, marked as sRGB. JPEG is on white
/// where the slide is not opaque. Unless there is a limit of bytes, no more of a JPEG picture is held than a
/// band. The error says what is in the way, such as a limit that even the lowest quality does not keep to.
/// Throws std::bad_alloc.
[[nodiscard]] Result<QByteArray> encodeSlide(QSize size, const RowPainter &paint,
                                             const SlideEncoding &encoding);

/// The bytes that this takes at most, beside the file: of PNG by bands, none.
[[nodiscard]] qint64 encodingMemory(QSize size, const SlideEncoding &encoding);

/// That a file is larger than its limit.
[[nodiscard]] Error tooLarge(qint64 mostBytes);

} // namespace mosslantern
