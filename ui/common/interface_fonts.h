#pragma once

#include "model/error.h"

namespace mosslantern {

/// Makes the fonts of slides and of the interface known, and the interface's font the application's own.
Result<> useInterfaceFonts();

} // namespace mosslantern
