#pragma once

#include "app/cli/command.h"

namespace mosslantern {

/// What a word on the command line stands for, as far as a shell can complete it.
enum class ValueKind {
    free,
    file,
    folder,
    style,
    shape,
    asset,
    collection,
    batch,
    slideshow,
    preset,
    contentTemplate
};

/// The kind behind a word of the help, such as "DIR", "FILE|-" or "COLLECTION...".
ValueKind valueKind(QStringView placeholder);

/// The kinds of a command's operands in their order, read from its usage line; the last one repeats when the
/// command takes more.
std::vector<ValueKind> operandKinds(const Command &command);

/// The words that an operand of the command can only be, such as the name of a preference.
QStringList fixedOperands(const Command &command);

} // namespace mosslantern
