#pragma once

#include "model/error.h"
#include "model/record.h"

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
};

/// Reads everything, or fails at the first value that no record can have.
Result<StoredRecords> readRecords(SQLite::Database &database);

} // namespace mosslantern
