#include "model/library_recovery.h"

#include "model/file_copy.h"
#include "model/file_sync.h"
#include "model/partial_file.h"
#include "model/record_reader.h"
#include "model/store.h"
#include "model/store_file.h"

#include <QtCore/QFileInfo>

#include <SQLiteCpp/Database.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

constexpr std::array companions{"-wal"_L1, "-journal"_L1};

qint64 countOf(const StoredRecords &records)
{
    qint64 count = 0;
    for (const Tally &tally : records.tallies)
        count += tally.rows;
    return count;
}

Result<StoredRecords> readWhole(const QString &path)
{
    const auto database = openStoreFileToRead(path);
    if (!database)
        return std::unexpected(database.error());
    const auto damaged = [&](const Error &error) {
        return fail(u"The library “%1” is damaged: %2."_s.arg(path, error.message),
                    ErrorKind::damagedLibrary);
    };
    Result<StoredRecords> records = readRecords(**database);
    if (!records)
        return damaged(records.error());
    if (const Result<> checked = checkPages(**database); !checked)
        return damaged(checked.error());
    return records;
}

/// A name beside the library that is not taken, for the damaged file.
QString asideName(const QString &path)
{
    const QFileInfo file(path);
    const QString base = u"%1/%2 (damaged %3"_s.arg(file.path(), file.completeBaseName(),
                                                    QDate::currentDate().toString(Qt::ISODate));
    QString name;
    for (int number = 1; name.isEmpty() || QFileInfo::exists(name); ++number)
        name = base + (number == 1 ? QString() : u", %1"_s.arg(number)) + ")."_L1 + file.suffix();
    return name;
}

bool giveSecondName(const QString &path, const QString &name)
{
    return ::link(QFile::encodeName(path).constData(), QFile::encodeName(name).constData()) == 0;
}

/// Replaces the library by a finished file. At every moment one of the two has the library's name.
Result<QString> replaceLibrary(const QString &path, PartialFile &replacement)
{
    const auto failed = [&] {
        return fail(u"The library “%1” could not be replaced: %2"_s.arg(path, qt_error_string(errno)));
    };
    const QString aside = asideName(path);
    if (!giveSecondName(path, aside))
        return failed();
    for (const QLatin1StringView suffix : companions) {
        if (!QFileInfo::exists(path + suffix))
            continue;
        // A log belongs to its file alone and would spoil another one.
        if (!giveSecondName(path + suffix, aside + suffix) || !QFile::remove(path + suffix))
            return failed();
    }
    if (const Result<> synced = syncToDisk({replacement.path()}); !synced)
        return std::unexpected(synced.error());
    if (!replacement.commit(QFileInfo(path).fileName()))
        return failed();
    if (const Result<> synced = syncToDisk({path}); !synced)
        return std::unexpected(synced.error());
    return aside;
}

QString canonicalStoreFile(const LibraryLocation &location)
{
    const QString canonical = QFileInfo(location.storeFile()).canonicalFilePath();
    return canonical.isEmpty() ? location.storeFile() : canonical;
}

} // namespace

Result<> checkLibrary(const LibraryLocation &location)
{
    const Result<StoredRecords> records = readWhole(canonicalStoreFile(location));
    if (!records)
        return std::unexpected(records.error());
    return {};
}

std::optional<LibraryCopy> newestWholeCopy(const LibraryLocation &location)
{
    for (LibraryCopy copy : copiesOf(location)) {
        if (const Result<StoredRecords> records = readWhole(copy.file)) {
            copy.records = countOf(*records);
            return copy;
        }
    }
    return std::nullopt;
}

Result<Recovery> useCopy(const LibraryLocation &location, const LibraryCopy &copy)
{
    const Result<StoredRecords> records = readWhole(copy.file);
    if (!records)
        return std::unexpected(records.error());
    const QString path = canonicalStoreFile(location);
    PartialFile replacement(QFileInfo(path).path(), S_IRUSR | S_IWUSR);
    if (const Result<> copied = copyInto(replacement, copy.file, path); !copied)
        return std::unexpected(copied.error());
    const Result<QString> aside = replaceLibrary(path, replacement);
    if (!aside)
        return std::unexpected(aside.error());
    return Recovery{.records = countOf(*records), .damagedFile = *aside};
}

Result<Recovery> rescueLibrary(const LibraryLocation &location)
{
    const QString path = canonicalStoreFile(location);
    const auto database = openCopyOfDamagedFile(path);
    if (!database)
        return std::unexpected(database.error());
    ReadableRecords readable = readWhatCanBeRead(**database);
    Recovery recovery{
        .records = countOf(readable.records), .lost = readable.lost, .isDoubtful = readable.isDoubtful};
    if (recovery.records == 0)
        return fail(u"Nothing could be read of the library “%1”."_s.arg(path));
    PartialFile replacement(QFileInfo(path).path(), S_IRUSR | S_IWUSR);
    if (!replacement.isOpen())
        return fail(u"“%1” could not be written: %2"_s.arg(path, qt_error_string(errno)));
    if (const Result<> written = Store::writeNew(replacement.path(), std::move(readable.records)); !written)
        return std::unexpected(written.error());
    const Result<QString> aside = replaceLibrary(path, replacement);
    if (!aside)
        return std::unexpected(aside.error());
    recovery.damagedFile = *aside;
    return recovery;
}

} // namespace mosslantern
