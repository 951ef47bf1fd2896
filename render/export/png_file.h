#pragma once

#include "render/export/slide_renderer.h"

namespace mosslantern {

/// Writes a PNG file whole or not at all, replacing a file of that name. A slide that could not be drawn is
/// an error, too.
[[nodiscard]] Result<> writePngFile(const QString &path, const EncodedSlide &slide);

} // namespace mosslantern
