#pragma once

#include "model/error.h"

#include <memory>

namespace SQLite {
class Database;
}

namespace mosslantern {

/// The SQLite file of a library.
struct StoreFile
{
    std::unique_ptr<SQLite::Database> database;
    /// Why nothing can be written to it, a clause without its full stop; empty when it can.
    QString readOnlyReason;
};

/// Opens the file of a library, exclusively until it is closed, with the schema of this program; makes the
/// file and its folder, for their owner alone, when they are not there. One that may not be written, or whose
/// folder may not, is opened for reading. A file that is not a library, or one of a newer schema, or one that
/// holds what no library has, is refused before anything in it is changed or run. Until acceptStoreFile()
/// nothing that a write-ahead log holds gets into the file itself.
Result<StoreFile> openStoreFile(const QString &storeFile);

/// Opens a library's file that nobody has open, for reading alone; changes nothing.
Result<std::unique_ptr<SQLite::Database>> openStoreFileToRead(const QString &path);

/// Opens a copy, made for that, of a file that may be damaged in any way; nothing that it holds is run.
Result<std::unique_ptr<SQLite::Database>> openCopyOfDamagedFile(const QString &path);

/// Checks every page, every index and the list of free pages. The error is SQLite's.
Result<> checkPages(SQLite::Database &database);

/// The contents of the file are fit to be written to.
void acceptStoreFile(SQLite::Database &database);

} // namespace mosslantern
