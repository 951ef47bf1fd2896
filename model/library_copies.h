#pragma once

#include "model/error.h"
#include "model/library_location.h"

#include <QtCore/QDate>

#include <functional>

namespace SQLite {
class Database;
}

namespace mosslantern {

/// A copy of a library's file, made on an earlier day while all was well.
struct LibraryCopy
{
    QDate day;
    QString file;
    qint64 records = 0; // how many it holds; 0 until somebody has looked
};

/// The copies of a library, the newest first.
std::vector<LibraryCopy> copiesOf(const LibraryLocation &location);

/// Whether the library has changed since its newest copy, and none was made on this day or later.
bool isCopyDue(const LibraryLocation &location, const QDate &today);

/// Makes the copy of a day, for its owner alone, and removes all but the five newest. `mayGoOn` is called now
/// and then: until it returns others may use the database; when it says no, nothing is left.
Result<> copyLibrary(SQLite::Database &database, const LibraryLocation &location, const QDate &today,
                     const std::function<bool()> &mayGoOn);

} // namespace mosslantern
