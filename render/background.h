#pragma once

#include "model/error.h"
#include "render/canvas.h"
#include "render/slide_composition.h"

namespace mosslantern {

/// The background of a slide whose picture is the file at `path`, cropped to fill the canvas and no larger in
/// memory than that needs: standard gray when `path` is empty, gray at 20 % when the picture cannot be read.
/// May be called from any thread.
[[nodiscard]] Background loadBackground(const QString &path, const Canvas &canvas);

/// As loadBackground(), but a picture that cannot be read is an error.
[[nodiscard]] Result<Background> tryLoadBackground(const QString &path, const Canvas &canvas);

} // namespace mosslantern
