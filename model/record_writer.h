#pragma once

#include "model/error.h"
#include "model/tally.h"

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
    /// Records that lose a relation by that, in the file by themselves.
    std::vector<Record *> untied;
    /// What the file held before, without what leaves it.
    Tallies tallies;
};

/// What the file holds after a save.
struct SavedChanges
{
    Tallies tallies;
    std::vector<std::pair<Record *, quint64>> hashes; // the rows of all records that have changed there
};

/// Writes all of it in one transaction, or nothing.
Result<SavedChanges> writeChanges(SQLite::Database &database, const UnsavedChanges &changes);

} // namespace mosslantern
