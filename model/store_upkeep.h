#pragma once

#include "model/error.h"
#include "model/library_location.h"

#include <atomic>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>

namespace SQLite {
class Database;
}

namespace mosslantern {

/// Looks after the file of an open library, if it is allowed to in a thread of its own: checks the whole of
/// it, makes the copy of the day, and removes the pictures that killed programs have copied in part.
class StoreUpkeep
{
public:
    StoreUpkeep(SQLite::Database &database, const LibraryLocation &location);
    /// Ends the thread, whatever it is at.
    ~StoreUpkeep();
    Q_DISABLE_COPY_MOVE(StoreUpkeep)

    /// Begins all that in the thread, which calls `checked` after the check. Does nothing where no thread can
    /// be had.
    void start(std::function<void()> checked);

    /// Whether the thread is checking the file.
    bool isChecking() const { return m_isChecking; }

    /// The outcome of the check, which is waited for or made now. The error says what is wrong with the file.
    Result<> check();

    /// Keeps the thread away from the database.
    std::unique_lock<std::mutex> holdDatabase() { return std::unique_lock(m_mutex); }

    /// Waits until the thread has done all.
    void finish();

private:
    void run(const std::function<void()> &checked);
    void makeCopyOfTheDay();

    SQLite::Database &m_database;
    LibraryLocation m_location;
    std::mutex m_mutex; // of the database and the outcome
    std::optional<Result<>> m_outcome;
    std::atomic<bool> m_isRunning = false;
    std::atomic<bool> m_isChecking = false;
    std::atomic<bool> m_isEnding = false;
    std::thread m_thread;
};

} // namespace mosslantern
