#pragma once

#include "model/error.h"
#include "model/record.h"

namespace SQLite {
class Database;
}

namespace mosslantern {

/// What a save has to write.
struct UnsavedChanges
{
    /// New and changed records, each after those that it points to.
    std::vector<Record *> records;
    /// Kind and row of records that were removed and are in the file.
    std::vector<std::pair<RecordKind, qint64>> removedRows;
};

/// Writes all of it in one transaction, or nothing.
Result<> writeChanges(SQLite::Database &database, const UnsavedChanges &changes);

} // namespace mosslantern
