#pragma once

#include "model/error.h"

namespace mosslantern {

/// Copies the bytes of the file at `from` to a new file in `folder`, which is made with any missing parents,
/// under the name `name`. The copy shares disk space with the original where the file system can do that, is
/// readable and writable by its owner alone, and appears under its name only when it is complete.
Result<> copyIntoFolder(const QString &from, const QString &folder, const QString &name);

class PartialFile;

/// Copies the bytes of the file at `from` into an empty one; `target` is its name in the error.
Result<> copyInto(PartialFile &copy, const QString &from, const QString &target);

/// A random UUID in upper case, a full stop, and the extension of `name`, which is what follows its last full
/// stop: nothing for "picture", "picture." or ".picture".
QString uniqueNameLike(const QString &name);

} // namespace mosslantern
