#include "model/schema.h"

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Transaction.h>

#include <array>
#include <string>

namespace mosslantern {

namespace {

// A step is never changed once a release has written files with it; what changes later is a new step.
// "row" is the place in the store's order and unique over all tables; "id" is the 16 bytes of the UUID;
// times are milliseconds since 1970 in UTC; a null is a field that is none.
constexpr std::array steps = {
    R"(
CREATE TABLE collection (
    row INTEGER PRIMARY KEY,
    id BLOB NOT NULL UNIQUE,
    name TEXT NOT NULL,
    createdAt INTEGER NOT NULL
) STRICT;

CREATE TABLE asset (
    row INTEGER PRIMARY KEY,
    id BLOB NOT NULL UNIQUE,
    filename TEXT NOT NULL,
    name TEXT NOT NULL,
    collection INTEGER REFERENCES collection (row) ON DELETE SET NULL
) STRICT;
CREATE INDEX assetCollection ON asset (collection) WHERE collection IS NOT NULL;

CREATE TABLE slideshow (
    row INTEGER PRIMARY KEY,
    id BLOB NOT NULL UNIQUE,
    createdAt INTEGER NOT NULL,
    aspectRatio TEXT,
    collection INTEGER REFERENCES collection (row) ON DELETE SET NULL,
    batchId BLOB,
    batchName TEXT
) STRICT;
CREATE INDEX slideshowCollection ON slideshow (collection) WHERE collection IS NOT NULL;

CREATE TABLE slide (
    row INTEGER PRIMARY KEY,
    id BLOB NOT NULL UNIQUE,
    slideshow INTEGER NOT NULL REFERENCES slideshow (row) ON DELETE CASCADE,
    asset INTEGER REFERENCES asset (row) ON DELETE SET NULL,
    imageFilename TEXT,
    text TEXT NOT NULL,
    subtitle TEXT NOT NULL,
    "order" INTEGER NOT NULL,
    textX REAL NOT NULL,
    textY REAL NOT NULL,
    subtitleX REAL NOT NULL,
    subtitleY REAL NOT NULL,
    textScale REAL NOT NULL,
    subtitleScale REAL NOT NULL,
    textStyle TEXT NOT NULL,
    boxColorHex TEXT NOT NULL
) STRICT;
CREATE INDEX slideSlideshow ON slide (slideshow);
CREATE INDEX slideAsset ON slide (asset) WHERE asset IS NOT NULL;

CREATE TABLE slidePreset (
    row INTEGER PRIMARY KEY,
    id BLOB NOT NULL UNIQUE,
    name TEXT NOT NULL,
    createdAt INTEGER NOT NULL,
    textX REAL NOT NULL,
    textY REAL NOT NULL,
    subtitleX REAL NOT NULL,
    subtitleY REAL NOT NULL,
    textScale REAL NOT NULL,
    subtitleScale REAL NOT NULL,
    textStyle TEXT NOT NULL,
    boxColorHex TEXT NOT NULL
) STRICT;

CREATE TABLE contentTemplate (
    row INTEGER PRIMARY KEY,
    id BLOB NOT NULL UNIQUE,
    name TEXT NOT NULL,
    content TEXT NOT NULL,
    createdAt INTEGER NOT NULL
) STRICT;
)",
};

} // namespace

std::span<const char *const> schemaSteps()
{
    return steps;
}

void migrate(SQLite::Database &database, std::span<const char *const> steps)
{
    const auto version = static_cast<size_t>(database.execAndGet("PRAGMA user_version").getInt());
    for (size_t done = version; done < steps.size(); ++done) {
        SQLite::Transaction step(database);
        database.exec(steps[done]);
        database.exec("PRAGMA application_id = " + std::to_string(storeApplicationId));
        database.exec("PRAGMA user_version = " + std::to_string(done + 1));
        step.commit();
    }
}

} // namespace mosslantern
