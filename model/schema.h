#pragma once

#include "model/error.h"

#include <span>

namespace SQLite {
class Database;
}

namespace mosslantern {

/// What tells a library from other SQLite files: "MOSS" in the header's application_id.
inline constexpr int storeApplicationId = 0x4D4F5353;

/// The steps that lead from an empty file to the schema of this program. The version of a file is the number
/// of steps that have been applied to it, kept in its header's user_version.
std::span<const char *const> schemaSteps();

/// Applies the steps that the file lacks, each in a transaction of its own. Foreign keys must not be enforced
/// meanwhile. Throws SQLite::Exception.
void migrate(SQLite::Database &database, std::span<const char *const> steps = schemaSteps());

/// Fails, naming it, when the file holds a table, an index or anything else that these steps do not make, or
/// lacks one that they do. Runs nothing that the file holds. Throws SQLite::Exception.
Result<> checkSchema(SQLite::Database &database, std::span<const char *const> steps = schemaSteps());

} // namespace mosslantern
