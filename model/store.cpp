#include "model/store.h"

#include "model/file_sync.h"
#include "model/live_query.h"
#include "model/record_reader.h"
#include "model/record_writer.h"
#include "model/slideshow.h"
#include "model/store_file.h"
#include "model/store_upkeep.h"

#include <SQLiteCpp/Database.h>

#include <chrono>

namespace mosslantern {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto retryInterval = 10s;

/// Takes what the log holds into the file, which can do without it then.
Result<> foldLog(SQLite::Database &database, const QString &storeFile)
{
    QString problem;
    try {
        const std::string mode = database.execAndGet("PRAGMA journal_mode = DELETE").getString();
        if (mode == "delete")
            return {};
        problem = u"its log could not be removed"_s;
    } catch (const SQLite::Exception &exception) {
        problem = QString::fromUtf8(exception.what());
    }
    return fail(u"“%1” could not be written: %2"_s.arg(storeFile, problem));
}

} // namespace

Result<std::unique_ptr<Store>> Store::open(const LibraryLocation &location)
{
    Result<StoreFile> file = openStoreFile(location.storeFile());
    if (!file)
        return std::unexpected(file.error());
    const auto damaged = [&](const QString &what) {
        return fail(u"The library “%1” is damaged: %2."_s.arg(location.storeFile(), what),
                    ErrorKind::damagedLibrary);
    };
    Result<StoredRecords> stored = readRecords(*file->database);
    if (!stored)
        return damaged(stored.error().message);

    std::unique_ptr<Store> store(new Store(location));
    if (!store->takeOver(*stored))
        return damaged(u"two records have the same id"_s);
    store->m_tallies = stored->tallies;
    store->m_readOnlyReason = file->readOnlyReason;
    if (file->readOnlyReason.isEmpty()) {
        acceptStoreFile(*file->database);
        store->m_database = std::move(file->database);
        store->m_upkeep = std::make_unique<StoreUpkeep>(*store->m_database, location);
    }
    return store;
}

Result<> Store::writeNew(const QString &storeFile, StoredRecords records)
{
    const Result<std::unique_ptr<Store>> store = open(LibraryLocation(storeFile, QString()));
    if (!store)
        return std::unexpected(store.error());
    (*store)->takeOver(records);
    for (const Records &all : (*store)->m_records) {
        for (Record *record : all) {
            record->m_savedHash = 0;
            (*store)->noteUnsaved(record);
        }
    }
    const Result<> written = (*store)->flush();
    return written ? foldLog(*(*store)->m_database, storeFile) : written;
}

bool Store::takeOver(StoredRecords &stored)
{
    const auto count = stored.collections.size() + stored.assets.size() + stored.slideshows.size() +
                       stored.slides.size() + stored.slidePresets.size() + stored.contentTemplates.size();
    m_byId.reserve(static_cast<qsizetype>(count));
    const auto takeOverAll = [this](std::vector<std::unique_ptr<Record>> &records) {
        for (std::unique_ptr<Record> &record : records) {
            record->setParent(this);
            enter(record.release());
        }
    };
    takeOverAll(stored.collections);
    takeOverAll(stored.assets);
    takeOverAll(stored.slideshows);
    for (Record *slide : stored.slides)
        enter(slide);
    takeOverAll(stored.slidePresets);
    takeOverAll(stored.contentTemplates);
    return count == static_cast<size_t>(m_byId.size());
}

void Store::beginUpkeep()
{
    if (m_upkeep)
        m_upkeep->start([this] { QMetaObject::invokeMethod(this, &Store::endCheck, Qt::QueuedConnection); });
}

Result<> Store::checkFile()
{
    const Result<> checked = m_upkeep->check();
    return checked ? checked
                   : fail(u"The library “%1” is damaged: %2."_s.arg(m_location.storeFile(),
                                                                    checked.error().message),
                          ErrorKind::damagedLibrary);
}

Store::Store(const LibraryLocation &location)
    : m_location(location)
    , m_retry(this)
    , m_leaving(this)
{
    m_retry.setSingleShot(true);
    connect(&m_retry, &QTimer::timeout, this, &Store::saveSoon);
}

Store::~Store()
{
    m_isClosing = true;
    save();
    // Those who only use the tool have the time of the day's first change to wait.
    if (m_upkeep && m_hasWritten)
        m_upkeep->finish();
    m_upkeep.reset();
    for (const auto &queries : m_queries) {
        for (LiveQueryBase *query : queries) {
            if (query)
                query->loseStore();
        }
    }
    // Untied first, the records need not look for each other while they are destroyed.
    Record::Notices dropped;
    for (const RecordKind kind : {RecordKind::collection, RecordKind::asset}) {
        for (Record *record : records(kind))
            record->sever(dropped);
    }
    for (const Records &records : m_records) {
        for (Record *record : records)
            record->m_store = nullptr;
    }
}

void Store::remove(Record *record)
{
    Q_ASSERT(record->store() == this);
    Records leaving;
    if (record->kind() == RecordKind::slideshow) {
        for (Slide *slide : static_cast<Slideshow *>(record)->slides())
            leaving.push_back(slide);
    }
    leaving.push_back(record);
    for (Record *leaver : leaving)
        leave(leaver);
    for (const Record *leaver : leaving) {
        if (leaver->m_savedHash != 0)
            m_tallies[static_cast<size_t>(leaver->kind())].remove(leaver->m_savedHash);
    }
    if (record->m_savedHash != 0)
        m_removedRows.emplace_back(record->kind(), record->row());
    Record::Notices notices;
    record->sever(notices);
    for (const auto &notice : notices)
        noteUntied(notice.record);
    record->setParent(&m_leaving);
    record->deleteLater();
    saveSoon();

    for (Record *leaver : leaving)
        noteChanged(leaver);
    for (Record *leaver : leaving)
        emit leaver->removed();
    Record::announce(notices);
}

Result<> Store::flush()
{
    if (m_unsaved.isEmpty() && m_removedRows.empty())
        return {};
    if (!m_database)
        return fail(u"The library cannot be changed: %1"_s.arg(m_readOnlyReason));
    if (Result<> checked = checkFile(); !checked)
        return checked;
    if (Result<> synced = syncToDisk(m_newFiles); !synced)
        return synced;
    m_newFiles.clear();
    UnsavedChanges changes{{m_unsaved.cbegin(), m_unsaved.cend()}, m_removedRows, {}, m_tallies};
    std::ranges::sort(changes.records, {},
                      [](const Record *record) { return std::pair(record->kind(), record->row()); });
    for (Record *record : std::as_const(m_untied)) {
        if (!m_unsaved.contains(record))
            changes.untied.push_back(record);
    }
    const auto held = m_upkeep->holdDatabase();
    Result<SavedChanges> written = writeChanges(*m_database, changes);
    if (!written)
        return std::unexpected(written.error());
    for (const auto &[record, hash] : written->hashes)
        record->m_savedHash = hash;
    m_tallies = written->tallies;
    m_hasWritten = true;
    m_unsaved.clear();
    m_removedRows.clear();
    m_untied.clear();
    return {};
}

void Store::insertRecord(Record *record)
{
    Q_ASSERT(record && !record->store() && record->row() == 0);
    record->setParent(this);
    Records entering{record};
    if (record->kind() == RecordKind::slideshow) {
        for (Slide *slide : static_cast<Slideshow *>(record)->slides())
            entering.push_back(slide);
    }
    for (Record *entrant : entering) {
        entrant->m_row = m_lastRow + 1;
        enter(entrant);
        noteUnsaved(entrant);
    }
    for (Record *entrant : entering) {
        entrant->entered();
        noteChanged(entrant);
    }
}

void Store::enter(Record *record)
{
    record->m_store = this;
    records(record->kind()).push_back(record);
    m_byId.insert(record->id(), record);
    m_lastRow = std::max(m_lastRow, record->row());
}

void Store::leave(Record *record)
{
    Records &all = records(record->kind());
    all.erase(std::ranges::lower_bound(all, record->row(), {}, &Record::row));
    m_byId.remove(record->id());
    m_unsaved.remove(record);
    m_untied.remove(record);
    record->m_store = nullptr;
}

void Store::noteUnsaved(Record *record)
{
    m_unsaved.insert(record);
    saveSoon();
}

void Store::noteUntied(Record *record)
{
    if (record && record->store() == this && record->m_savedHash != 0)
        m_untied.insert(record);
}

void Store::noteChanged(Record *record)
{
    // By index, and keeping the places of destroyed queries: a view that is told may make or destroy others.
    auto &queries = m_queries[static_cast<size_t>(record->kind())];
    ++m_notifications;
    for (size_t i = 0; i < queries.size(); ++i) {
        if (queries[i])
            queries[i]->update(record);
    }
    if (--m_notifications == 0)
        std::erase(queries, nullptr);
}

void Store::attach(LiveQueryBase *query)
{
    m_queries[static_cast<size_t>(query->m_kind)].push_back(query);
}

void Store::detach(LiveQueryBase *query)
{
    auto &queries = m_queries[static_cast<size_t>(query->m_kind)];
    if (m_notifications > 0)
        std::ranges::replace(queries, query, nullptr);
    else
        std::erase(queries, query);
}

void Store::saveSoon()
{
    if (std::exchange(m_saveIsPending, true))
        return;
    QMetaObject::invokeMethod(this, &Store::save, Qt::QueuedConnection);
}

void Store::save()
{
    m_saveIsPending = false;
    if (m_upkeep && m_upkeep->isChecking() && !m_isClosing)
        return; // endCheck() saves.
    const Result<> written = flush();
    if (written) {
        emit saved();
        return;
    }
    if (!m_database)
        return;
    m_retry.start(retryInterval);
    emit saveFailed(written.error().message);
}

void Store::endCheck()
{
    if (const Result<> checked = checkFile(); !checked)
        emit damageFound(checked.error().message);
    else
        save();
}

} // namespace mosslantern
