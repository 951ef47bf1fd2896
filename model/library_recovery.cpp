#include "model/library_recovery.h"

#include "model/file_copy.h"
#include "model/file_sync.h"
#include "model/partial_file.h"
#include "model/record_reader.h"
#include "model/store.h"
#include "model/store_file.h"

#include <QtCore/QFileInfo>
#include <QtCore/QHash>

#include <SQLiteCpp/Database.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

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

constexpr std::array logs{"-wal"_L1, "-journal"_L1};

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

/// A library's file and its logs while they are getting other names. What has not been kept is put back.
class Removal
{
public:
    explicit Removal(QString path)
        : m_path(std::move(path))
        , m_aside(asideName(m_path))
    {}
    ~Removal()
    {
        const int error = errno;
        for (const QLatin1StringView suffix : m_linked) {
            link(m_aside + suffix, m_path + suffix); // where it was removed
            QFile::remove(m_aside + suffix);
        }
        errno = error;
    }
    Q_DISABLE_COPY_MOVE(Removal)

    /// Gives all of them a second name, and takes the first one from the logs: a log belongs to its file
    /// alone and would spoil another one. False with errno set when that fails.
    bool begin()
    {
        if (!giveSecondName(""_L1))
            return false;
        for (const QLatin1StringView log : logs) {
            if (QFileInfo::exists(m_path + log) && !(giveSecondName(log) && QFile::remove(m_path + log)))
                return false;
        }
        return true;
    }

    /// Where the file is from now on.
    QString keep()
    {
        m_linked.clear();
        return m_aside;
    }

private:
    bool giveSecondName(QLatin1StringView suffix)
    {
        const bool linked = link(m_path + suffix, m_aside + suffix);
        if (linked)
            m_linked.push_back(suffix);
        return linked;
    }

    static bool link(const QString &from, const QString &to)
    {
        return ::link(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0;
    }

    QString m_path;
    QString m_aside;
    std::vector<QLatin1StringView> m_linked;
};

/// Replaces the library by a finished file. At every moment one of the two has the library's name.
Result<QString> replaceLibrary(const QString &path, PartialFile &replacement)
{
    if (const Result<> synced = syncToDisk({replacement.path()}); !synced)
        return std::unexpected(synced.error());
    Removal damaged(path);
    if (!damaged.begin() || !replacement.commit(QFileInfo(path).fileName()))
        return fail(u"The library “%1” could not be replaced: %2"_s.arg(path, qt_error_string(errno)));
    const QString aside = damaged.keep();
    if (const Result<> synced = syncToDisk({path}); !synced)
        return std::unexpected(synced.error());
    return aside;
}

/// The saved rows of all records, by their ids.
QHash<QUuid, quint64> rowsOf(const StoredRecords &records)
{
    QHash<QUuid, quint64> rows;
    const auto add = [&](const auto &list) {
        for (const auto &record : list)
            rows.insert(record->id(), record->savedHash());
    };
    add(records.collections);
    add(records.assets);
    add(records.slideshows);
    add(records.slides);
    add(records.slidePresets);
    add(records.contentTemplates);
    return rows;
}

/// What goes when a copy takes the place of the damaged library at `path`: what was added and changed since.
void compareWithDamaged(const QString &path, const StoredRecords &copy, Recovery &recovery)
{
    const auto damaged = openCopyOfDamagedFile(path);
    if (!damaged) {
        recovery.isDoubtful = true;
        return;
    }
    const ReadableRecords readable = readWhatCanBeRead(**damaged);
    const QHash<QUuid, quint64> copied = rowsOf(copy);
    const QHash<QUuid, quint64> saved = rowsOf(readable.records);
    recovery.isDoubtful = readable.isDoubtful;
    for (auto row = saved.begin(); row != saved.end(); ++row) {
        const auto found = copied.find(row.key());
        recovery.lost += found == copied.end();
        recovery.isDoubtful |= found != copied.end() && *found != *row;
    }
    recovery.lost = std::max(recovery.lost, saved.size() + readable.lost - copied.size());
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
    Recovery recovery{.records = countOf(*records)};
    compareWithDamaged(path, *records, recovery);
    const Result<QString> aside = replaceLibrary(path, replacement);
    if (!aside)
        return std::unexpected(aside.error());
    recovery.damagedFile = *aside;
    return recovery;
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
    if (const Result<> written = Store::writeNew(replacement.path(), std::move(readable.records)); !written) {
        for (const QLatin1StringView log : logs)
            QFile::remove(replacement.path() + log);
        return std::unexpected(written.error());
    }
    const Result<QString> aside = replaceLibrary(path, replacement);
    if (!aside)
        return std::unexpected(aside.error());
    recovery.damagedFile = *aside;
    return recovery;
}

} // namespace mosslantern
