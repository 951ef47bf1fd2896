#include "model/library_copies.h"

#include "model/file_sync.h"
#include "model/partial_file.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>

#include <SQLiteCpp/Backup.h>
#include <SQLiteCpp/Database.h>
#include <sqlite3.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <chrono>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

constexpr size_t keptCopies = 5;
constexpr std::chrono::hours copyInterval(1);
constexpr int pagesPerStep = 256; // a megabyte, some milliseconds

constexpr auto nameFormat = "yyyy-MM-dd'.sqlite'"_L1;

std::unexpected<Error> notCopied(const QString &reason)
{
    return fail(u"The library could not be copied: %1"_s.arg(reason));
}

/// False when it was given up.
bool copyPages(SQLite::Database &from, const QString &to, const std::function<bool()> &mayGoOn)
{
    SQLite::Database copy(QFile::encodeName(to).toStdString(), SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX);
    copy.exec("PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF");
    SQLite::Backup backup(copy, from);
    while (backup.executeStep(pagesPerStep) != SQLITE_DONE) {
        if (!mayGoOn())
            return false;
    }
    return true;
}

} // namespace

std::vector<LibraryCopy> copiesOf(const LibraryLocation &location)
{
    std::vector<LibraryCopy> copies;
    const QDir folder(location.copyFolder());
    for (const QString &name : folder.entryList(QDir::Files)) {
        if (const QDate day = QDate::fromString(name, nameFormat); day.isValid())
            copies.push_back({.day = day, .file = folder.filePath(name)});
    }
    std::ranges::sort(copies, std::greater(), &LibraryCopy::day);
    return copies;
}

bool isCopyDue(const LibraryLocation &location, const QDateTime &now)
{
    const std::vector<LibraryCopy> copies = copiesOf(location);
    if (copies.empty())
        return true;
    const LibraryCopy &newest = copies.front();
    const QDateTime copiedAt = QFileInfo(newest.file).lastModified();
    const bool isOld = newest.day < now.date() || copiedAt + copyInterval <= now;
    const QFileInfo log(location.storeFile() + "-wal"_L1);
    return isOld && newest.day <= now.date() &&
           (log.size() > 0 || QFileInfo(location.storeFile()).lastModified() > copiedAt);
}

Result<> copyLibrary(SQLite::Database &database, const LibraryLocation &location, const QDate &today,
                     const std::function<bool()> &mayGoOn)
{
    const QString folder = location.copyFolder();
    if (!QFileInfo(folder).isDir() && ::mkdir(QFile::encodeName(folder).constData(), S_IRWXU) != 0)
        return notCopied(qt_error_string(errno));
    removeAbandonedFiles(folder);
    PartialFile partial(folder, S_IRUSR | S_IWUSR);
    if (!partial.isOpen())
        return notCopied(qt_error_string(errno));
    try {
        if (!copyPages(database, partial.path(), mayGoOn))
            return {};
    } catch (const SQLite::Exception &exception) {
        return notCopied(QString::fromUtf8(exception.what()));
    }
    if (const Result<> synced = syncToDisk({partial.path()}); !synced)
        return synced;
    const QString name = today.toString(nameFormat);
    if (!partial.commit(name))
        return notCopied(qt_error_string(errno));
    if (const Result<> synced = syncToDisk({QDir(folder).filePath(name)}); !synced)
        return synced;
    const std::vector<LibraryCopy> copies = copiesOf(location);
    for (size_t i = keptCopies; i < copies.size(); ++i)
        QFile::remove(copies[i].file);
    return {};
}

} // namespace mosslantern
