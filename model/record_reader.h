#pragma once

#include "model/error.h"
#include "model/tally.h"

#include <memory>

namespace SQLite {
class Database;
}

namespace mosslantern {

/// All records of a file, by kind, in the store's order, related to each other. The slides belong to their
/// slideshows.
struct StoredRecords
{
    std::vector<std::unique_ptr<Record>> collections;
    std::vector<std::unique_ptr<Record>> assets;
    std::vector<std::unique_ptr<Record>> slideshows;
    std::vector<Record *> slides;
    std::vector<std::unique_ptr<Record>> slidePresets;
    std::vector<std::unique_ptr<Record>> contentTemplates;
    Tallies tallies;
};

/// Reads everything, or fails at the first value that no record can have, or when the rows are not those that
/// were saved.
Result<StoredRecords> readRecords(SQLite::Database &database);

/// What is left of a damaged file.
struct ReadableRecords
{
    StoredRecords records;
    qint64 lost = 0;         // how many are known to be missing
    bool isDoubtful = false; // whether some may not be as they were saved
};

/// Reads every row that can be reached and that a record can have.
ReadableRecords readWhatCanBeRead(SQLite::Database &database);

} // namespace mosslantern
