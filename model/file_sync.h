#pragma once

#include "model/error.h"

#include <QtCore/QStringList>

namespace mosslantern {

/// Waits until the contents and the names of these files are on the disk, whatever happens to the computer
/// then. A file that is gone counts as written.
Result<> syncToDisk(const QStringList &files);

} // namespace mosslantern
