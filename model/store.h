#pragma once

#include "model/error.h"
#include "model/library_location.h"
#include "model/tally.h"

#include <QtCore/QHash>
#include <QtCore/QSet>
#include <QtCore/QTimer>

#include <array>
#include <concepts>
#include <functional>
#include <memory>

namespace SQLite {
class Database;
}

namespace mosslantern {

class LiveQueryBase;
class StoreUpkeep;
struct StoredRecords;

/// A record type that is inserted by itself; slides come and go with their slideshow.
template <typename T>
concept InsertableRecord = std::derived_from<T, Record> && T::recordKind != RecordKind::slide;

/// The records of one library, kept in one file. All records are in memory, one object for each; changes are
/// written together at the end of the event-loop turn, and in the destructor. A library can be open only once
/// at a time, in all processes together. Belongs to the thread that opens it, until moved to another one.
class Store : public QObject
{
    Q_OBJECT

public:
    /// Opens the library, or makes a new one when there is none; one that cannot be written is opened all the
    /// same. A file that is no library of this application, is damaged, or was written by a newer version is
    /// refused and left as it is.
    static Result<std::unique_ptr<Store>> open(const LibraryLocation &location);
    ~Store() override;

    /// Makes a library of these records in an empty file.
    static Result<> writeNew(const QString &storeFile, StoredRecords records);

    /// Begins to look after the library's file in a thread of low priority: checks all of it, makes the copy
    /// of the day, removes what killed programs left. Without that, the check is made before the first save.
    /// To be called again now and then, for the next day.
    void beginUpkeep();

    /// Where the library was opened.
    const LibraryLocation &location() const { return m_location; }

    /// Why nothing can be saved in this library, a clause without its full stop; empty when it can.
    QString readOnlyReason() const { return m_readOnlyReason; }

    /// Takes over a new record; a slideshow brings its slides with it.
    template <InsertableRecord T>
    T *insert(std::unique_ptr<T> record)
    {
        T *const inserted = record.release();
        insertRecord(inserted);
        return inserted;
    }

    /// Removes a record of this store: a slideshow together with its slides; a collection leaves its assets
    /// and slideshows without collection; an asset leaves its slides without asset. Files stay.
    void remove(Record *record);

    /// All records of a type in the store's order, which is that of insertion.
    template <std::derived_from<Record> T>
    std::vector<T *> all() const
    {
        std::vector<T *> found;
        found.reserve(records(T::recordKind).size());
        for (Record *record : records(T::recordKind))
            found.push_back(static_cast<T *>(record));
        return found;
    }

    /// The records of a type for which `filter` is true, in the store's order.
    template <std::derived_from<Record> T>
    std::vector<T *> fetch(const std::function<bool(const T &)> &filter) const
    {
        std::vector<T *> found;
        for (Record *record : records(T::recordKind)) {
            if (filter(*static_cast<T *>(record)))
                found.push_back(static_cast<T *>(record));
        }
        return found;
    }

    /// The record with this id, or null when there is none of this type.
    template <std::derived_from<Record> T>
    T *find(const QUuid &id) const
    {
        Record *const record = m_byId.value(id);
        return record && record->kind() == T::recordKind ? static_cast<T *>(record) : nullptr;
    }

    /// A picture file that a record of the next save names: it must be on the disk before the record is.
    void noteNewFile(const QString &path) { m_newFiles.append(path); }

    /// Writes everything that changed since the last save, or nothing if that fails: then the changes are
    /// kept for the next attempt. Nothing is ever written to a file that is damaged.
    Result<> flush();

signals:
    /// Changes could not be written; they are kept and tried again, with the next change or a while later.
    void saveFailed(const QString &message);
    /// Changes were written.
    void saved();
    /// The file turned out to be damaged: nothing can be saved in it any more.
    void damageFound(const QString &message);

private:
    friend class Record;
    friend class LiveQueryBase;

    using Records = std::vector<Record *>;

    explicit Store(const LibraryLocation &location);

    const Records &records(RecordKind kind) const { return m_records[static_cast<size_t>(kind)]; }
    Records &records(RecordKind kind) { return m_records[static_cast<size_t>(kind)]; }
    void insertRecord(Record *record);
    void enter(Record *record);
    void leave(Record *record);
    void noteUnsaved(Record *record);
    void noteUntied(Record *record);
    void noteChanged(Record *record);
    void attach(LiveQueryBase *query);
    void detach(LiveQueryBase *query);
    bool takeOver(StoredRecords &stored);
    Result<> checkFile();
    void saveSoon();
    void save();
    void endCheck();

    LibraryLocation m_location;
    std::unique_ptr<SQLite::Database> m_database; // null when it can only be read
    std::unique_ptr<StoreUpkeep> m_upkeep;        // of the database
    bool m_hasWritten = false;
    bool m_isClosing = false;
    QString m_readOnlyReason;
    std::array<Records, recordKindCount> m_records;
    std::array<std::vector<LiveQueryBase *>, recordKindCount> m_queries;
    QHash<QUuid, Record *> m_byId;
    qint64 m_lastRow = 0;
    QSet<Record *> m_unsaved;
    QStringList m_newFiles; // perhaps not on the disk yet
    std::vector<std::pair<RecordKind, qint64>> m_removedRows;
    QSet<Record *> m_untied; // by the removal of those
    Tallies m_tallies;       // of the file, without what is removed
    bool m_saveIsPending = false;
    QTimer m_retry;
    int m_notifications = 0;
    QObject m_leaving;
};

} // namespace mosslantern
