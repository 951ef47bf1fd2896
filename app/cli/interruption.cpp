#include "app/cli/interruption.h"

#include "render/picture/decoding_stop.h"

#include <QtCore/QSocketNotifier>

#include <sys/eventfd.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdint>

namespace mosslantern {

namespace {

constexpr std::array handledSignals{SIGINT, SIGTERM, SIGHUP};

// A signal handler reaches nothing but these.
std::atomic<int> receivedSignal = 0;
std::atomic<int> wakeUp = -1;
static_assert(std::atomic<int>::is_always_lock_free);

void noteSignal(int number)
{
    const int error = errno;
    receivedSignal = number;
    const uint64_t one = 1;
    [[maybe_unused]] const auto written = ::write(wakeUp, &one, sizeof one);
    errno = error;
}

} // namespace

Interruption::Interruption()
{
    Q_ASSERT(wakeUp < 0);
    wakeUp = ::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    auto *const notifier = new QSocketNotifier(wakeUp, QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this, notifier] {
        notifier->setEnabled(false);
        emit requested();
    });
    setDecodingStop([] { return receivedSignal != 0; });
    for (const int number : handledSignals) {
        struct sigaction current = {};
        ::sigaction(number, nullptr, &current);
        if (current.sa_handler == SIG_IGN)
            continue;
        struct sigaction ours = {};
        ours.sa_handler = noteSignal;
        ours.sa_flags = SA_RESTART | static_cast<int>(SA_RESETHAND);
        ::sigaction(number, &ours, nullptr);
    }
}

Interruption::~Interruption()
{
    for (const int number : handledSignals) {
        struct sigaction current = {};
        ::sigaction(number, nullptr, &current);
        if (current.sa_handler == noteSignal)
            std::signal(number, SIG_DFL);
    }
    setDecodingStop(nullptr);
    ::close(wakeUp.exchange(-1));
}

bool Interruption::isRequested() const
{
    return receivedSignal != 0;
}

int Interruption::exitStatus(int status) const
{
    return isRequested() ? 128 + receivedSignal : status;
}

} // namespace mosslantern
