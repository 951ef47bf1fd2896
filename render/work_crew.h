#pragma once

#include <atomic>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace mosslantern {

/// Threads that do pieces of work. Where the system lets none be started, whoever waits does the work: limits
/// of memory or processes make it slow, but never wait for ever.
class WorkCrew
{
public:
    using Work = std::function<void()>; // throws nothing

    enum class Order {
        first, // before all that was started as `later`
        later,
    };

    /// Of `size` threads, at least one. They are started with the first piece of work.
    explicit WorkCrew(int size);
    /// Finishes what was started.
    ~WorkCrew();
    WorkCrew(const WorkCrew &) = delete;
    WorkCrew &operator=(const WorkCrew &) = delete;

    int size() const { return m_size; }

    /// Whether a thread works, and not just whoever waits. Known once a piece of work has been started.
    bool hasThreads() const { return !m_threads.empty(); }

    /// From any thread.
    void start(Work work, Order order);

    /// Returns once a piece of work has set `isDone`.
    void waitFor(const std::atomic<bool> &isDone);
    /// Returns once nothing is left to do.
    void waitForAll();

private:
    void startThreads();
    void work();
    bool workOnce(std::unique_lock<std::mutex> &lock);
    template <typename Condition>
    void waitUntil(Condition condition);

    const int m_size;
    std::mutex m_mutex;
    std::condition_variable m_changed; // something to do, something done, or the end
    std::deque<Work> m_first;
    std::deque<Work> m_later;
    std::vector<std::thread> m_threads;
    int m_running = 0;
    bool m_ends = false;
};

} // namespace mosslantern
