#include "render/picture/decoding_share.h"

#include <algorithm>
#include <condition_variable>
#include <mutex>

namespace mosslantern {

namespace {

struct Account
{
    std::mutex mutex;
    std::condition_variable changed;
    qint64 free = decodingMemory;
    quint64 nextTicket = 0; // so that many small pictures do not keep a large one waiting for ever
    quint64 served = 0;
};

Account &account()
{
    static Account shared;
    return shared;
}

} // namespace

DecodingShare::DecodingShare(qint64 bytes)
    : m_bytes(std::clamp<qint64>(bytes, 0, decodingMemory))
{
    Account &shared = account();
    std::unique_lock lock(shared.mutex);
    const quint64 ticket = shared.nextTicket++;
    shared.changed.wait(lock, [&] { return ticket == shared.served && m_bytes <= shared.free; });
    ++shared.served;
    shared.free -= m_bytes;
    lock.unlock();
    shared.changed.notify_all();
}

DecodingShare::~DecodingShare()
{
    Account &shared = account();
    {
        const std::lock_guard lock(shared.mutex);
        shared.free += m_bytes;
    }
    shared.changed.notify_all();
}

} // namespace mosslantern
