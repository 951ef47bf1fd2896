#include "bench/window_measures.h"

#include <QtCore/QDir>

#include <sys/resource.h>
#include <unistd.h>

#include <cstdio>

namespace mosslantern {

using namespace Qt::StringLiterals;

StartOptions optionsFor(const QString &folder)
{
    return {.location = LibraryLocation::inFolder(folder),
            .stateFile = QDir(folder).filePath(u"state.ini"_s),
            .updateFeed = QUrl(QString(), QUrl::StrictMode)};
}

QQuickItem *findItem(QQuickItem *item, const QString &name)
{
    if (item->objectName() == name)
        return item;
    for (QQuickItem *child : item->childItems()) {
        if (QQuickItem *const found = findItem(child, name))
            return found;
    }
    return nullptr;
}

void finish()
{
    std::fflush(stdout);
    ::_exit(0);
}

Frames::Frames(QQuickWindow &window)
{
    connect(
        &window, &QQuickWindow::frameSwapped, this,
        [this] {
            const QMutexLocker lock(&m_mutex);
            const double now = static_cast<double>(m_clock.nsecsElapsed()) / 1e6;
            m_frames.append(now - m_last);
            m_last = now;
        },
        Qt::DirectConnection);
    m_clock.start();
}

void Frames::report()
{
    const QMutexLocker lock(&m_mutex);
    std::ranges::sort(m_frames);
    rusage usage = {};
    ::getrusage(RUSAGE_SELF, &usage);
    const auto late = std::ranges::count_if(m_frames, [](double ms) { return ms > 50; });
    std::printf("%lld frames, median %.1f ms, 99 %% %.1f ms, longest %.1f ms, %lld over 50 ms, "
                "memory at most %ld MB\n",
                static_cast<long long>(m_frames.size()), m_frames[m_frames.size() / 2],
                m_frames[m_frames.size() * 99 / 100], m_frames.constLast(), static_cast<long long>(late),
                usage.ru_maxrss / 1024);
}

void scrollThrough(QQuickWindow &window, QQuickItem &area, double seconds)
{
    auto *const frames = new Frames(window);
    QObject::connect(&window, &QQuickWindow::afterAnimating, &area, [frames, seconds, &window, &area] {
        const double done = frames->seconds() / seconds;
        const double end = area.property("contentHeight").toDouble() - area.height();
        area.setProperty("contentY", end * std::min(done, 1.0));
        window.update();
        if (done >= 1) {
            frames->report();
            finish();
        }
    });
    window.update();
}

} // namespace mosslantern
