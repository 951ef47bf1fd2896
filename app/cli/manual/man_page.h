#pragma once

#include "app/cli/command.h"

namespace mosslantern {

/// The manual pages mosslantern-cli(1), from the table of commands, and mosslantern(1), as troff source.
QString toolManual(const std::vector<Command> &commands);
QString windowManual();

} // namespace mosslantern
