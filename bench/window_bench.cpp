// Speed of the window with a large library. bench/window.sh runs it:
//   window_bench prepare FOLDER COUNT PHOTOGRAPHS  makes a library; its pictures are links to the photographs
//   window_bench empty                             first frame of a window with nothing in it
//   window_bench first FOLDER                      first frame of the application on that library
//   window_bench scroll FOLDER SECONDS             from the first asset to the last in that time
// The time of the first frame is counted from $STARTED, nanoseconds since 1970.

#include "app/gui/mosslantern_app.h"
#include "model/asset.h"

#include <QtCore/QDateTime>
#include <QtCore/QDir>
#include <QtCore/QElapsedTimer>
#include <QtCore/QMutex>
#include <QtQuick/QQuickItem>
#include <QtWidgets/QApplication>

#include <sys/resource.h>
#include <unistd.h>

#include <cstdio>

using namespace mosslantern;
using namespace Qt::StringLiterals;

namespace {

int prepare(const QString &folder, int count, const QString &photographs)
{
    const LibraryLocation location = LibraryLocation::inFolder(folder);
    QDir().mkpath(location.assetFolder());
    const QFileInfoList pictures = QDir(photographs).entryInfoList({u"*.jpg"_s}, QDir::Files, QDir::Name);
    const auto store = Store::open(location);
    if (!store || pictures.isEmpty())
        return 1;
    for (int i = 0; i < count; ++i) {
        const QString name = u"%1.jpg"_s.arg(i, 5, 10, QChar(u'0'));
        QFile::link(pictures[i % pictures.size()].filePath(), QDir(location.assetFolder()).filePath(name));
        (*store)->insert(std::make_unique<Asset>(name, name, nullptr));
    }
    return (*store)->flush() ? 0 : 1;
}

void printFirstFrame()
{
    const double started = qEnvironmentVariable("STARTED").toDouble() / 1e6;
    std::printf("%.0f\n", static_cast<double>(QDateTime::currentMSecsSinceEpoch()) - started);
    std::fflush(stdout);
    ::_exit(0);
}

int showEmpty()
{
    QQuickWindow window;
    window.resize(1280, 830);
    QObject::connect(&window, &QQuickWindow::frameSwapped, &window, printFirstFrame, Qt::DirectConnection);
    window.show();
    return QApplication::exec();
}

StartOptions options(const QString &folder)
{
    return {.location = LibraryLocation::inFolder(folder),
            .stateFile = QDir(folder).filePath(u"state.ini"_s),
            .updateFeed = QUrl(QString(), QUrl::StrictMode)};
}

int showFirst(const QString &folder)
{
    MosslanternApp app(options(folder));
    if (app.start() != StartOutcome::shown || !app.window())
        return 1;
    QObject::connect(app.window(), &QQuickWindow::frameSwapped, app.window(), printFirstFrame,
                     Qt::DirectConnection);
    return QApplication::exec();
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

/// Scrolls and keeps the time that each frame took.
class Scroller : public QObject
{
public:
    Scroller(QQuickWindow &window, double seconds)
        : m_window(window)
        , m_grid(findItem(window.contentItem(), u"assetGrid"_s))
        , m_seconds(seconds)
    {
        connect(
            &window, &QQuickWindow::frameSwapped, this, [this] { noteFrame(); }, Qt::DirectConnection);
        connect(&window, &QQuickWindow::afterAnimating, this, [this] { scroll(); });
        m_clock.start();
        window.update();
    }

private:
    void noteFrame()
    {
        const QMutexLocker lock(&m_mutex);
        const double now = static_cast<double>(m_clock.nsecsElapsed()) / 1e6;
        m_frames.append(now - m_lastFrame);
        m_lastFrame = now;
    }

    void scroll()
    {
        const double done = static_cast<double>(m_clock.nsecsElapsed()) / 1e9 / m_seconds;
        const double end = m_grid->property("contentHeight").toDouble() - m_grid->height();
        m_grid->setProperty("contentY", end * std::min(done, 1.0));
        m_window.update();
        if (done >= 1)
            report();
    }

    void report()
    {
        const QMutexLocker lock(&m_mutex);
        // The first frames show the window itself.
        QList<double> frames = m_frames.sliced(3);
        std::ranges::sort(frames);
        rusage usage = {};
        ::getrusage(RUSAGE_SELF, &usage);
        const auto late = std::ranges::count_if(frames, [](double ms) { return ms > 50; });
        std::printf("%lld frames, median %.1f ms, 99 %% %.1f ms, longest %.1f ms, %lld over 50 ms, "
                    "memory at most %ld MB\n",
                    static_cast<long long>(frames.size()), frames[frames.size() / 2],
                    frames[frames.size() * 99 / 100], frames.constLast(), static_cast<long long>(late),
                    usage.ru_maxrss / 1024);
        std::fflush(stdout);
        ::_exit(0);
    }

    QQuickWindow &m_window;
    QQuickItem *m_grid;
    double m_seconds;
    QElapsedTimer m_clock;
    QMutex m_mutex;
    double m_lastFrame = 0;
    QList<double> m_frames;
};

int scrollThrough(const QString &folder, double seconds)
{
    MosslanternApp app(options(folder));
    if (app.start() != StartOutcome::shown || !app.window())
        return 1;
    std::optional<Scroller> scroller;
    QTimer::singleShot(3000, app.window(), [&] { scroller.emplace(*app.window(), seconds); });
    return QApplication::exec();
}

} // namespace

int main(int argc, char **argv)
{
    QQuickWindow::setTextRenderType(QQuickWindow::NativeTextRendering);
    QStringList words;
    for (int i = 1; i < argc; ++i)
        words.append(QString::fromLocal8Bit(argv[i]));
    if (words.value(0) == "prepare"_L1 && words.size() == 4) {
        const QCoreApplication application(argc, argv);
        return prepare(words[1], words[2].toInt(), words[3]);
    }
    const QApplication application(argc, argv);
    if (words.value(0) == "empty"_L1)
        return showEmpty();
    if (words.value(0) == "first"_L1 && words.size() == 2)
        return showFirst(words[1]);
    if (words.value(0) == "scroll"_L1 && words.size() == 3)
        return scrollThrough(words[1], words[2].toDouble());
    std::fprintf(stderr, "see bench/window.sh\n");
    return 2;
}
