#pragma once

#include "model/error.h"

namespace mosslantern {

/// Makes the fonts of slides and of the interface known. Safe in any thread.
Result<> registerInterfaceFonts();

/// Makes the interface's font, once it is registered, the application's own.
void useInterfaceFont();

} // namespace mosslantern
