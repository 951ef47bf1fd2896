#pragma once

#include "render/export/slide_renderer.h"

namespace mosslantern {

/// Writes a PNG file whole or not at all, replacing a file of that name.
[[nodiscard]] Result<> writePngFile(const QString &path, const EncodedSlide &slide);

} // namespace mosslantern
