#pragma once

#include "model/error.h"

#include <memory>

namespace SQLite {
class Database;
}

namespace mosslantern {

/// Opens the SQLite file of a library, exclusively until it is closed, with the schema of this program; makes
/// the file and its folder, for their owner alone, when they are not there. A file that is not a library, or
/// one of a newer schema, is refused before anything in it is changed.
Result<std::unique_ptr<SQLite::Database>> openStoreFile(const QString &storeFile);

} // namespace mosslantern
