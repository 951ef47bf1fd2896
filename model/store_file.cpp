#include "model/store_file.h"

#include "model/file_sync.h"
#include "model/library_copies.h"
#include "model/partial_file.h"
#include "model/schema.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QTemporaryDir>
#include <QtCore/QtEndian>

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Transaction.h>
#include <fcntl.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

/// How long another program that looks at the file for a moment is waited for.
constexpr int busyMilliseconds = 200;

/// Without locks between threads: a store is used by one thread at a time.
constexpr int openFlags = SQLITE_OPEN_NOMUTEX;

enum class FileKind { empty, library, olderLibrary, newerLibrary, damagedLibrary, foreign };

std::unexpected<Error> cannotOpen(const QString &path, const QString &reason,
                                  ErrorKind kind = ErrorKind::other)
{
    return fail(u"The library “%1” could not be opened: %2"_s.arg(path, reason), kind);
}

const QString openElsewhere = u"it is already open in another Mosslantern."_s;

QString systemError()
{
    return qt_error_string(errno) + u'.';
}

/// Makes a folder and its missing parents for the user alone.
bool createPrivateFolder(const QString &path)
{
    if (QFileInfo(path).isDir() || ::mkdir(QFile::encodeName(path).constData(), S_IRWXU) == 0)
        return true;
    return errno == ENOENT && createPrivateFolder(QFileInfo(path).path()) &&
           ::mkdir(QFile::encodeName(path).constData(), S_IRWXU) == 0;
}

bool may(const QString &path, int access)
{
    return ::faccessat(AT_FDCWD, QFile::encodeName(path).constData(), access, AT_EACCESS) == 0;
}

/// Makes a library where there is none: whole or not at all. SQLite itself would make a file that others can
/// read.
Result<> createLibrary(const QString &path)
{
    const QFileInfo file(path);
    removeAbandonedFiles(file.path());
    PartialFile partial(file.path(), S_IRUSR | S_IWUSR);
    if (!partial.isOpen())
        return cannotOpen(path, systemError());
    {
        SQLite::Database database(QFile::encodeName(partial.path()).toStdString(),
                                  SQLITE_OPEN_READWRITE | openFlags);
        migrate(database);
    }
    if (!partial.commitNew(file.fileName()) && errno != EEXIST)
        return cannotOpen(path, systemError());
    return syncToDisk({path});
}

/// Makes a missing library. Gives the reason why an existing one can only be read, if there is one.
Result<QString> createMissingFile(const QString &path)
{
    const QString folder = QFileInfo(path).path();
    if (!createPrivateFolder(folder))
        return cannotOpen(path, u"its folder could not be created: %1"_s.arg(systemError()));
    struct stat status = {};
    if (::stat(QFile::encodeName(path).constData(), &status) != 0) {
        const Result<> created = createLibrary(path);
        return created ? Result<QString>() : std::unexpected(created.error());
    }
    if (!S_ISREG(status.st_mode))
        return cannotOpen(path, u"it is not a file."_s);
    if (!may(path, R_OK))
        return cannotOpen(path, systemError());
    if (!may(path, W_OK))
        return u"its file cannot be written: %1"_s.arg(qt_error_string(errno));
    if (!may(folder, R_OK | W_OK | X_OK))
        return u"its folder cannot be written: %1"_s.arg(qt_error_string(errno));
    return {};
}

FileKind kindOf(int applicationId, int version)
{
    if (applicationId != storeApplicationId)
        return FileKind::foreign;
    const int current = static_cast<int>(schemaSteps().size());
    if (version < 0)
        return FileKind::damagedLibrary;
    return version > current   ? FileKind::newerLibrary
           : version < current ? FileKind::olderLibrary
                               : FileKind::library;
}

Result<> checkKind(FileKind kind, const QString &path)
{
    const bool hasCopies = !copiesOf(LibraryLocation(path, QString())).empty();
    if (kind == FileKind::foreign)
        return cannotOpen(path, u"it is not a Mosslantern library."_s,
                          hasCopies ? ErrorKind::damagedLibrary : ErrorKind::other);
    if (kind == FileKind::empty && hasCopies)
        return cannotOpen(path, u"it is empty, and was not when it was copied."_s, ErrorKind::damagedLibrary);
    if (kind == FileKind::damagedLibrary)
        return cannotOpen(path, u"it is damaged: its version is no version of a library."_s,
                          ErrorKind::damagedLibrary);
    if (kind == FileKind::newerLibrary)
        return cannotOpen(path, u"it was written by a newer version of Mosslantern."_s);
    return {};
}

/// Judges a file by the 100 bytes of its header alone, without SQLite's recovery of interrupted writes, which
/// would change a file that is not ours. Reads through SQLite's file layer: closing a descriptor of our own
/// would release the lock of another store of this process.
Result<FileKind> peek(const QString &path)
{
    sqlite3_vfs *const vfs = sqlite3_vfs_find(nullptr);
    const std::unique_ptr<char[]> storage(new char[static_cast<size_t>(vfs->szOsFile)]());
    auto *const file = reinterpret_cast<sqlite3_file *>(storage.get());
    const QByteArray encoded = QFile::encodeName(path);
    errno = 0;
    if (vfs->xOpen(vfs, encoded.constData(), file, SQLITE_OPEN_READONLY | SQLITE_OPEN_MAIN_DB, nullptr) !=
        SQLITE_OK)
        return cannotOpen(path, systemError());
    std::array<char, 100> header = {};
    const bool isLocked = file->pMethods->xLock(file, SQLITE_LOCK_SHARED) == SQLITE_BUSY;
    const int read = file->pMethods->xRead(file, header.data(), static_cast<int>(header.size()), 0);
    file->pMethods->xClose(file);
    if (isLocked)
        return cannotOpen(path, openElsewhere);
    if (read != SQLITE_OK && read != SQLITE_IOERR_SHORT_READ)
        return cannotOpen(path, u"it could not be read."_s);

    if (QFileInfo(path).size() == 0)
        return FileKind::empty;
    constexpr char magic[16] = "SQLite format 3";
    if (std::memcmp(header.data(), magic, sizeof magic) != 0)
        return FileKind::foreign;
    return kindOf(qFromBigEndian<int>(header.data() + 68), qFromBigEndian<int>(header.data() + 60));
}

int storedVersion(SQLite::Database &database)
{
    return database.execAndGet("PRAGMA user_version").getInt();
}

/// Locks the file until it is closed and judges it again, now as SQLite sees it: with what a write-ahead log
/// holds, and without the half of an interrupted first write. Writes nothing.
FileKind lockAndJudge(SQLite::Database &database)
{
    database.exec("PRAGMA locking_mode = EXCLUSIVE");
    const SQLite::Transaction rolledBack(database, SQLite::TransactionBehavior::EXCLUSIVE);
    const int applicationId = database.execAndGet("PRAGMA application_id").getInt();
    const int version = storedVersion(database);
    return applicationId == 0 && version == 0 ? FileKind::empty : kindOf(applicationId, version);
}

void setOption(SQLite::Database &database, int option, bool on)
{
    sqlite3_db_config(database.getHandle(), option, on ? 1 : 0, nullptr);
}

void makePrivate(const QString &path)
{
    for (const QString &suffix : {u""_s, u"-wal"_s, u"-journal"_s})
        ::chmod(QFile::encodeName(path + suffix).constData(), S_IRUSR | S_IWUSR);
}

std::unexpected<Error> cannotOpen(const QString &path, const SQLite::Exception &exception)
{
    switch (exception.getErrorCode()) {
    case SQLITE_BUSY:
        return cannotOpen(path, openElsewhere);
    case SQLITE_NOTADB:
    case SQLITE_CORRUPT:
        return cannotOpen(path, u"it is damaged (%1)."_s.arg(QString::fromUtf8(exception.what())),
                          ErrorKind::damagedLibrary);
    default:
        return cannotOpen(path, QString::fromUtf8(exception.what()) + u'.');
    }
}

/// Nothing that a file brings along is run, whatever it holds.
void distrust(SQLite::Database &database)
{
    setOption(database, SQLITE_DBCONFIG_TRUSTED_SCHEMA, false);
    setOption(database, SQLITE_DBCONFIG_DEFENSIVE, true);
    setOption(database, SQLITE_DBCONFIG_ENABLE_TRIGGER, false);
    setOption(database, SQLITE_DBCONFIG_ENABLE_VIEW, false);
    database.exec("PRAGMA cell_size_check = ON");
}

Result<> checkOwnSchema(SQLite::Database &database, const QString &path)
{
    const auto version = static_cast<size_t>(storedVersion(database));
    const Result<> checked = checkSchema(database, schemaSteps().first(version));
    return checked ? checked : cannotOpen(path, checked.error().message, ErrorKind::damagedLibrary);
}

Result<std::unique_ptr<SQLite::Database>> openForWriting(const QString &path)
{
    auto database = std::make_unique<SQLite::Database>(QFile::encodeName(path).toStdString(),
                                                       SQLITE_OPEN_READWRITE | openFlags, busyMilliseconds);
    setOption(*database, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, true);
    distrust(*database);
    const FileKind kind = lockAndJudge(*database);
    if (const Result<> checked = checkKind(kind, path); !checked)
        return std::unexpected(checked.error());
    if (const Result<> checked = checkOwnSchema(*database, path); !checked)
        return std::unexpected(checked.error());
    makePrivate(path);

    // The first schema goes through a rollback journal, so that the file's own header always tells a library
    // from other files, even after a crash.
    migrate(*database);
    database->exec("PRAGMA journal_mode = WAL");
    database->exec("PRAGMA synchronous = FULL");
    database->exec("PRAGMA foreign_keys = ON");
    return database;
}

Result<QString> copyWithLog(const QString &path, const QTemporaryDir &folder)
{
    const QString copy = folder.filePath(u"library.sqlite"_s);
    for (const QLatin1StringView suffix : {""_L1, "-wal"_L1, "-journal"_L1}) {
        if (QFile original(path + suffix); original.exists() && !original.copy(copy + suffix))
            return cannotOpen(path, u"it could not be copied to a folder for temporary files: %1."_s.arg(
                                        original.errorString()));
    }
    QFile::setPermissions(copy, QFile::ReadOwner | QFile::WriteOwner);
    return copy;
}

/// Of a file that nothing can be written to.
Result<std::unique_ptr<SQLite::Database>> openForReading(const QString &path, FileKind kind)
{
    const auto isPending = [&](QLatin1StringView suffix) { return QFileInfo(path + suffix).size() > 0; };
    if (kind == FileKind::library && !isPending("-wal"_L1) && !isPending("-journal"_L1)) {
        const QByteArray address = "file:" + QFile::encodeName(path).toPercentEncoding("/") + "?immutable=1";
        auto database = std::make_unique<SQLite::Database>(
            address.toStdString(), SQLITE_OPEN_READONLY | SQLITE_OPEN_URI | openFlags);
        distrust(*database);
        if (const Result<> checked = checkOwnSchema(*database, path); !checked)
            return std::unexpected(checked.error());
        return database;
    }
    // What an interrupted save left, or an older schema, has to be dealt with in a copy; once open, it needs
    // no name.
    const QTemporaryDir folder;
    const Result<QString> copy = copyWithLog(path, folder);
    return copy ? openForWriting(*copy) : std::unexpected(copy.error());
}

} // namespace

Result<StoreFile> openStoreFile(const QString &storeFile)
{
    if (storeFile.isEmpty())
        return fail(u"There is no home folder to keep the library in."_s);
    // SQLite's file layer opens no link, and keeps its log beside the file that a link points to.
    const QString canonical = QFileInfo(storeFile).canonicalFilePath();
    const QString path = canonical.isEmpty() ? storeFile : canonical;
    try {
        const Result<QString> readOnlyReason = createMissingFile(path);
        if (!readOnlyReason)
            return std::unexpected(readOnlyReason.error());
        const Result<FileKind> atFirst = peek(path);
        if (!atFirst)
            return std::unexpected(atFirst.error());
        if (const Result<> checked = checkKind(*atFirst, path); !checked)
            return std::unexpected(checked.error());
        auto database = readOnlyReason->isEmpty() ? openForWriting(path) : openForReading(path, *atFirst);
        if (!database)
            return std::unexpected(database.error());
        return StoreFile{std::move(*database), *readOnlyReason};
    } catch (const SQLite::Exception &exception) {
        return cannotOpen(path, exception);
    }
}

Result<std::unique_ptr<SQLite::Database>> openStoreFileToRead(const QString &path)
{
    const Result<FileKind> kind = peek(path);
    if (!kind)
        return std::unexpected(kind.error());
    if (const Result<> checked = checkKind(*kind, path); !checked)
        return std::unexpected(checked.error());
    try {
        return openForReading(path, *kind);
    } catch (const SQLite::Exception &exception) {
        return cannotOpen(path, exception);
    }
}

Result<std::unique_ptr<SQLite::Database>> openCopyOfDamagedFile(const QString &path)
{
    if (const Result<FileKind> unlocked = peek(path); !unlocked)
        return std::unexpected(unlocked.error());
    const QTemporaryDir folder;
    const Result<QString> copy = copyWithLog(path, folder);
    if (!copy)
        return std::unexpected(copy.error());
    try {
        auto database = std::make_unique<SQLite::Database>(QFile::encodeName(*copy).toStdString(),
                                                           SQLITE_OPEN_READWRITE | openFlags);
        distrust(*database);
        // Even where the schema itself is damaged, the rest of it is read.
        setOption(*database, SQLITE_DBCONFIG_DEFENSIVE, false);
        database->exec("PRAGMA locking_mode = EXCLUSIVE; PRAGMA writable_schema = ON; "
                       "PRAGMA cell_size_check = OFF; BEGIN; SELECT 1; COMMIT");
        database->tryExec("SELECT count(*) FROM sqlite_schema");
        return database;
    } catch (const SQLite::Exception &exception) {
        return cannotOpen(path, exception);
    }
}

Result<> checkPages(SQLite::Database &database)
{
    try {
        const std::string found = database.execAndGet("PRAGMA integrity_check(1)").getString();
        return found == "ok" ? Result<>() : fail(QString::fromStdString(found).simplified());
    } catch (const SQLite::Exception &exception) {
        return fail(QString::fromUtf8(exception.what()));
    }
}

void acceptStoreFile(SQLite::Database &database)
{
    setOption(database, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, false);
}

} // namespace mosslantern
