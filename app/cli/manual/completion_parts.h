#pragma once

#include "app/cli/manual/value_kind.h"

namespace mosslantern {

/// The options that a command understands, those of every command included.
std::vector<OptionSpec> allOptions(const Command &command);

/// The first words of the command line: commands of one word, and first words of those of two.
QStringList firstWords(const std::vector<Command> &commands);

/// What `kind` can be where the words are always the same; empty otherwise.
QStringList fixedValues(ValueKind kind);

/// What to list for the names of `kind`, such as "batches 1": the tool's list and the column of the names.
/// Empty for what is not in a library.
QString listedNames(ValueKind kind);

/// `text` in single quotes, as a shell reads them.
QString quoted(QStringView text);

} // namespace mosslantern
