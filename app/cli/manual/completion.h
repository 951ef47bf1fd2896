#pragma once

#include "app/cli/command.h"

namespace mosslantern {

/// Scripts that complete the tool's command line: commands, options, files, styles and shapes, and the names
/// of what is in the library. They ask the tool itself for those; while a window has the library open there
/// are none.
QString bashCompletion(const std::vector<Command> &commands);
QString zshCompletion(const std::vector<Command> &commands);
QString fishCompletion(const std::vector<Command> &commands);

} // namespace mosslantern
