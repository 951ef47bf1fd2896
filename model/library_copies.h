#pragma once

#include "model/error.h"
#include "model/library_location.h"

#include <QtCore/QDateTime>

#include <functional>

namespace SQLite {
class Database;
}

namespace mosslantern {

/// A copy of a library's file as it was on a day, made while all was well.
struct LibraryCopy
{
    QDate day;
    QString file;
    qint64 records = 0; // how many it holds; 0 until somebody has looked
};

/// The copies of a library, the newest first.
std::vector<LibraryCopy> copiesOf(const LibraryLocation &location);

/// Whether the library has changed since its newest copy, which is of an earlier day or an hour old. The copy
/// of a day is renewed and not kept beside the new one.
bool isCopyDue(const LibraryLocation &location, const QDateTime &now);

/// Makes the copy of a day, for its owner alone, and removes all but the five newest. `mayGoOn` is called now
/// and then: until it returns others may use the database; when it says no, nothing is left.
Result<> copyLibrary(SQLite::Database &database, const LibraryLocation &location, const QDate &today,
                     const std::function<bool()> &mayGoOn);

} // namespace mosslantern
