#pragma once

#include "render/export/slide_renderer.h"

namespace mosslantern {

/// Writes the file of a slide whole or not at all, replacing a file of that name. A slide that could not be
/// drawn is an error, too.
[[nodiscard]] Result<> writeSlideFile(const QString &path, const EncodedSlide &slide);

/// That the file of a slide is not there to be written.
[[nodiscard]] std::unexpected<Error> notDrawn(const QString &path, const EncodedSlide &slide);

} // namespace mosslantern
