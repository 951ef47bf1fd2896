#pragma once

#include "model/error.h"

namespace mosslantern {

/// Makes the folder at `path` and any missing parents; it may be there already.
Result<> makeFolder(const QString &path);

} // namespace mosslantern
