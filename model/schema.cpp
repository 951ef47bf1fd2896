#include "model/schema.h"

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>

#include <array>
#include <map>
#include <string>

namespace mosslantern {

using namespace Qt::StringLiterals;

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
    // What a save last knew of each table; null until the first save.
    R"(
CREATE TABLE tally (
    name TEXT PRIMARY KEY,
    rows INTEGER,
    sum INTEGER
) STRICT, WITHOUT ROWID;
INSERT INTO tally VALUES ('collection', NULL, NULL), ('asset', NULL, NULL), ('slideshow', NULL, NULL),
    ('slide', NULL, NULL), ('slidePreset', NULL, NULL), ('contentTemplate', NULL, NULL);
)",
    "ALTER TABLE slideshow ADD COLUMN caption TEXT",
};

using SchemaObject = std::pair<std::string, std::string>; // kind and name

/// Everything that a schema holds, and how each was made.
std::map<SchemaObject, std::string> schemaOf(SQLite::Database &database)
{
    std::map<SchemaObject, std::string> objects;
    SQLite::Statement statement(database, "SELECT type, name, tbl_name || ' ' || ifnull(sql, '') "
                                          "FROM sqlite_schema");
    while (statement.executeStep()) {
        const auto text = [&](int column) { return statement.getColumn(column).getString(); };
        objects.emplace(SchemaObject(text(0), text(1)), text(2));
    }
    return objects;
}

/// For a sentence; whoever wrote the file chose the name.
QString described(const SchemaObject &object)
{
    constexpr qsizetype longest = 60;
    const QString name = QString::fromStdString(object.second);
    return u"the %1 “%2”"_s.arg(QString::fromStdString(object.first),
                                name.size() > longest ? name.first(longest) + u'…' : name);
}

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

Result<> checkSchema(SQLite::Database &database, std::span<const char *const> steps)
{
    SQLite::Database model(":memory:", SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
    migrate(model, steps);
    const auto expected = schemaOf(model);
    const auto found = schemaOf(database);
    for (const auto &[object, text] : found) {
        const auto counterpart = expected.find(object);
        if (counterpart == expected.end())
            return fail(u"it holds %1, which no library has."_s.arg(described(object)));
        if (counterpart->second != text)
            return fail(u"%1 is not as Mosslantern makes it."_s.arg(described(object)));
    }
    for (const auto &[object, text] : expected) {
        if (!found.contains(object))
            return fail(u"it lacks %1."_s.arg(described(object)));
    }
    return {};
}

} // namespace mosslantern
