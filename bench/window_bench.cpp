// Speed of the window with a large library. bench/window.sh runs it:
//   window_bench prepare FOLDER COUNT PHOTOGRAPHS  makes a library; its pictures are links to the photographs
//   window_bench first FOLDER                      first frame of the application on that library
//   window_bench scroll FOLDER SECONDS             from the first asset to the last in that time
// The time of the first frame is counted from $STARTED, nanoseconds since 1970.

#include "bench/window_measures.h"
#include "model/asset.h"

#include <QtCore/QDateTime>
#include <QtCore/QDir>
#include <QtWidgets/QApplication>

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
    finish();
}

int showFirst(const QString &folder)
{
    MosslanternApp app(optionsFor(folder));
    if (app.start() != StartOutcome::shown || !app.window())
        return 1;
    QObject::connect(app.window(), &QQuickWindow::frameSwapped, app.window(), printFirstFrame,
                     Qt::DirectConnection);
    return QApplication::exec();
}

int scrollAssets(const QString &folder, double seconds)
{
    MosslanternApp app(optionsFor(folder));
    if (app.start() != StartOutcome::shown || !app.window())
        return 1;
    // Once the window itself is there.
    QTimer::singleShot(3000, app.window(), [&] {
        scrollThrough(*app.window(), *findItem(app.window()->contentItem(), u"assetGrid"_s), seconds);
    });
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
    if (words.value(0) == "first"_L1 && words.size() == 2)
        return showFirst(words[1]);
    if (words.value(0) == "scroll"_L1 && words.size() == 3)
        return scrollAssets(words[1], words[2].toDouble());
    std::fprintf(stderr, "see bench/window.sh\n");
    return 2;
}
