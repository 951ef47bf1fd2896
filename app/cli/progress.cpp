#include "app/cli/progress.h"

#include <unistd.h>

#include <cstdio>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 patience = 1000; // milliseconds
constexpr qint64 interval = 100;

/// The carriage return lets whatever is printed next start on this line.
void showLine(const QString &text)
{
    std::fprintf(stderr, "%s\033[K\r", text.toUtf8().constData());
}

void eraseLine()
{
    std::fputs("\033[K", stderr);
}

} // namespace

Progress::Progress(const QString &things)
    : m_things(things)
    , m_nextTime(::isatty(STDERR_FILENO) ? patience : std::numeric_limits<qint64>::max())
{
    m_clock.start();
}

Progress::~Progress()
{
    if (m_nextTime > patience && m_nextTime < std::numeric_limits<qint64>::max())
        eraseLine();
}

void Progress::show(qint64 done, qint64 total)
{
    if (m_clock.elapsed() < m_nextTime)
        return;
    m_nextTime = m_clock.elapsed() + interval;
    showLine(u"%1/%2 "_s.arg(done).arg(total) + m_things);
}

Spinner::Spinner(const QString &text)
{
    if (!::isatty(STDERR_FILENO))
        return;
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this, text] {
        constexpr QStringView pictures = u"|/-\\";
        m_timer.setInterval(interval);
        showLine(text + u' ' + pictures[m_turn++ % pictures.size()]);
    });
    m_timer.start(patience);
}

Spinner::~Spinner()
{
    if (m_turn > 0)
        eraseLine();
}

} // namespace mosslantern
