#pragma once

#include "app/cli/command.h"

namespace mosslantern {

/// What `mosslantern-cli --help` shows.
QString helpText(const std::vector<Command> &commands);

/// What `mosslantern-cli COMMAND --help` shows; for the first word of several commands, these.
QString helpText(const Command &command);
QString helpText(const QString &firstWord, const std::vector<Command> &commands);

} // namespace mosslantern
