#include "model/store_upkeep.h"

#include "model/library_copies.h"
#include "model/partial_file.h"
#include "model/store_file.h"

#include <QtCore/QFileInfo>

#include <SQLiteCpp/Database.h>
#include <sqlite3.h>
#include <sys/resource.h>
#include <unistd.h>

#include <chrono>
#include <system_error>

namespace mosslantern {

using namespace std::chrono_literals;

namespace {

/// An empty library must not push out the copies of a full one.
bool hasRecords(SQLite::Database &database)
{
    try {
        return database.execAndGet("SELECT sum(rows) FROM tally").getInt64() > 0;
    } catch (const SQLite::Exception &) {
        return false;
    }
}

} // namespace

StoreUpkeep::StoreUpkeep(SQLite::Database &database, const LibraryLocation &location)
    : m_database(database)
    , m_location(location)
{}

StoreUpkeep::~StoreUpkeep()
{
    m_isEnding = true;
    if (m_isChecking)
        sqlite3_interrupt(m_database.getHandle());
    finish();
}

void StoreUpkeep::start(std::function<void()> checked)
{
    if (m_isRunning)
        return;
    finish();
    m_isRunning = true;
    m_isChecking = !m_outcome;
    try {
        m_thread = std::thread([this, checked = std::move(checked)] { run(checked); });
    } catch (const std::system_error &) {
        m_isChecking = false;
        m_isRunning = false;
    }
}

Result<> StoreUpkeep::check()
{
    const auto held = holdDatabase();
    if (!m_outcome)
        m_outcome = checkPages(m_database);
    return *m_outcome;
}

void StoreUpkeep::finish()
{
    if (m_thread.joinable())
        m_thread.join();
}

void StoreUpkeep::run(const std::function<void()> &checked)
{
    const Result<> outcome = check();
    if (m_isChecking.exchange(false) && !m_isEnding)
        checked();
    constexpr int lowest = 19;
    ::setpriority(PRIO_PROCESS, static_cast<id_t>(::gettid()), lowest);
    if (outcome && !m_isEnding) {
        makeCopyOfTheDay();
        for (const QString &folder : {QFileInfo(m_location.storeFile()).path(), m_location.assetFolder(),
                                      m_location.slideImageFolder()}) {
            if (!m_isEnding && !folder.isEmpty())
                removeAbandonedFiles(folder);
        }
    }
    m_isRunning = false;
}

void StoreUpkeep::makeCopyOfTheDay()
{
    const QDateTime now = QDateTime::currentDateTime();
    auto held = holdDatabase();
    const auto mayGoOn = [&] {
        held.unlock();
        std::this_thread::sleep_for(1ms);
        held.lock();
        return !m_isEnding;
    };
    if (!hasRecords(m_database) || !isCopyDue(m_location, now))
        return;
    // What fails now is tried again with the next start.
    static_cast<void>(copyLibrary(m_database, m_location, now.date(), mayGoOn));
}

} // namespace mosslantern
