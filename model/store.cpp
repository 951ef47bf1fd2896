#include "model/store.h"

#include "model/file_sync.h"
#include "model/live_query.h"
#include "model/record_reader.h"
#include "model/record_writer.h"
#include "model/slideshow.h"
#include "model/store_file.h"

#include <SQLiteCpp/Database.h>

#include <chrono>

namespace mosslantern {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {
constexpr auto retryInterval = 10s;
}

Result<std::unique_ptr<Store>> Store::open(const LibraryLocation &location)
{
    Result<StoreFile> file = openStoreFile(location.storeFile());
    if (!file)
        return std::unexpected(file.error());
    const auto damaged = [&](const QString &what) {
        return fail(u"The library “%1” is damaged: %2"_s.arg(location.storeFile(), what),
                    ErrorKind::damagedLibrary);
    };
    Result<StoredRecords> stored = readRecords(*file->database);
    if (!stored)
        return damaged(stored.error().message);

    std::unique_ptr<Store> store(new Store(location));
    const auto count = stored->collections.size() + stored->assets.size() + stored->slideshows.size() +
                       stored->slides.size() + stored->slidePresets.size() + stored->contentTemplates.size();
    store->m_byId.reserve(static_cast<qsizetype>(count));
    const auto takeOver = [&store](std::vector<std::unique_ptr<Record>> &records) {
        for (std::unique_ptr<Record> &record : records) {
            record->setParent(store.get());
            store->enter(record.release());
        }
    };
    takeOver(stored->collections);
    takeOver(stored->assets);
    takeOver(stored->slideshows);
    for (Record *slide : stored->slides)
        store->enter(slide);
    takeOver(stored->slidePresets);
    takeOver(stored->contentTemplates);
    if (count != static_cast<size_t>(store->m_byId.size()))
        return damaged(u"two records have the same id"_s);
    store->m_readOnlyReason = file->readOnlyReason;
    if (file->readOnlyReason.isEmpty()) {
        acceptStoreFile(*file->database);
        store->m_database = std::move(file->database);
    }
    return store;
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
    save();
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
    if (record->m_isSaved)
        m_removedRows.emplace_back(record->kind(), record->row());
    Record::Notices notices;
    record->sever(notices);
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
    if (Result<> synced = syncToDisk(m_newFiles); !synced)
        return synced;
    m_newFiles.clear();
    UnsavedChanges changes{{m_unsaved.cbegin(), m_unsaved.cend()}, m_removedRows};
    std::ranges::sort(changes.records, {},
                      [](const Record *record) { return std::pair(record->kind(), record->row()); });
    if (Result<> written = writeChanges(*m_database, changes); !written)
        return written;
    for (Record *record : changes.records)
        record->m_isSaved = true;
    m_unsaved.clear();
    m_removedRows.clear();
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
    record->m_store = nullptr;
}

void Store::noteUnsaved(Record *record)
{
    m_unsaved.insert(record);
    saveSoon();
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

} // namespace mosslantern
