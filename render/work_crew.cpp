#include "render/work_crew.h"

#include <algorithm>
#include <exception>

namespace mosslantern {

WorkCrew::WorkCrew(int size)
    : m_size(std::max(1, size))
{}

WorkCrew::~WorkCrew()
{
    waitForAll();
    {
        const std::lock_guard lock(m_mutex);
        m_ends = true;
    }
    m_changed.notify_all();
    for (std::thread &thread : m_threads)
        thread.join();
}

void WorkCrew::start(Work work, Order order)
{
    std::unique_lock lock(m_mutex);
    if (m_threads.empty())
        startThreads();
    try {
        (order == Order::first ? m_first : m_later).push_back(work);
    } catch (const std::exception &) {
        // There is no memory to keep it for later.
        lock.unlock();
        work();
        return;
    }
    lock.unlock();
    m_changed.notify_one();
}

void WorkCrew::startThreads()
{
    try {
        m_threads.reserve(static_cast<size_t>(m_size));
        while (m_threads.size() < static_cast<size_t>(m_size))
            m_threads.emplace_back([this] { this->work(); });
    } catch (const std::exception &) {
        // Fewer will do, or none.
    }
}

void WorkCrew::work()
{
    std::unique_lock lock(m_mutex);
    while (!m_ends) {
        if (!workOnce(lock))
            m_changed.wait(lock);
    }
}

/// Does the next piece of work, if there is one.
bool WorkCrew::workOnce(std::unique_lock<std::mutex> &lock)
{
    std::deque<Work> &queue = m_first.empty() ? m_later : m_first;
    if (queue.empty())
        return false;
    const Work work = std::move(queue.front());
    queue.pop_front();
    ++m_running;
    lock.unlock();
    work();
    lock.lock();
    --m_running;
    m_changed.notify_all();
    return true;
}

template <typename Condition>
void WorkCrew::waitUntil(Condition condition)
{
    std::unique_lock lock(m_mutex);
    while (!condition()) {
        if (!m_threads.empty() || !workOnce(lock))
            m_changed.wait(lock);
    }
}

void WorkCrew::waitFor(const std::atomic<bool> &isDone)
{
    waitUntil([&isDone] { return isDone.load(); });
}

void WorkCrew::waitForAll()
{
    waitUntil([this] { return m_first.empty() && m_later.empty() && m_running == 0; });
}

} // namespace mosslantern
