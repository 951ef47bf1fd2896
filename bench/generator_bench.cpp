// Generates 50 slideshows of 5 slides from photographs of 4 MB, saves them, and copies as many files plainly,
// in turns, on the same file system. Usage: generator_bench [FOLDER [ROUNDS]]: where to work (by default the
// temporary folder)

#include "content/slideshow_maker.h"
#include "model/asset.h"
#include "model/image_files.h"
#include "model/store.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>

#include <chrono>
#include <cstdio>

using namespace mosslantern;
using namespace Qt::StringLiterals;

namespace {

constexpr int slideshows = 50;
constexpr int slides = 5;
constexpr qsizetype photographBytes = 4 << 20;

template <typename Work>
double milliseconds(Work work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

QStringList makePhotographs(const QString &folder)
{
    QStringList paths;
    for (int i = 0; i < 10; ++i) {
        QByteArray bytes(photographBytes, Qt::Uninitialized);
        QRandomGenerator(static_cast<quint32>(i))
            .fillRange(reinterpret_cast<quint32 *>(bytes.data()), bytes.size() / qsizetype(sizeof(quint32)));
        QFile file(folder + u"/%1.jpg"_s.arg(i));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("cannot write %s", qPrintable(file.fileName()));
        paths.append(file.fileName());
    }
    return paths;
}

double copyPlainly(const QStringList &photographs, const QString &folder, int round)
{
    const QString to = folder + u"/copies%1/"_s.arg(round);
    QDir().mkpath(to);
    return milliseconds([&] {
        for (int i = 0; i < slideshows * slides; ++i) {
            if (!QFile::copy(photographs[i % photographs.size()], to + QString::number(i)))
                qFatal("cannot copy");
        }
    });
}

double generate(const QStringList &photographs, const QString &folder, int round)
{
    const auto store = Store::open(LibraryLocation::inFolder(folder + u"/library%1"_s.arg(round)));
    if (!store)
        qFatal("%s", qPrintable(store.error().message));
    for (const QString &photograph : photographs)
        static_cast<void>(importAsset(QUrl::fromLocalFile(photograph), **store));
    const std::vector<SlideshowPlan> plans(slideshows, {QStringList(slides, u"text"_s).join(u'\n'), {}});
    const PictureSource pictures{(*store)->all<Asset>()};
    return milliseconds([&] {
        makeBatch(u"batch"_s, plans, pictures, **store, [](qsizetype, qsizetype) { return true; });
        static_cast<void>((*store)->flush());
    });
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QString where = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QDir::tempPath();
    const int rounds = argc > 2 ? std::atoi(argv[2]) : 5;
    for (int round = 0; round < rounds; ++round) {
        const QTemporaryDir folder(where + u"/mosslantern-XXXXXX"_s);
        const QStringList photographs = makePhotographs(folder.path());
        // Whoever comes second waits for the disk to take what the first has written: take turns.
        double copying = round % 2 == 0 ? copyPlainly(photographs, folder.path(), round) : 0;
        const double generating = generate(photographs, folder.path(), round);
        if (round % 2 != 0)
            copying = copyPlainly(photographs, folder.path(), round);
        std::printf("copying 250 files %.0f ms, generating 50 slideshows %.0f ms: %.2f x\n", copying,
                    generating, generating / copying);
    }
    return 0;
}
