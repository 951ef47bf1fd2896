// Speed of the store with a large library: 100,000 assets and 10,000 slideshows of 5 slides.

#include "model/collection.h"
#include "model/live_query.h"
#include "model/slideshow.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QElapsedTimer>
#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>

#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include <cstdio>
#include <cstdlib>

using namespace mosslantern;
using namespace Qt::StringLiterals;

namespace {

constexpr int assetCount = 100'000;
constexpr int slideshowCount = 10'000;
constexpr int slidesPerSlideshow = 5;
constexpr int pictureCount = 100;

std::unique_ptr<Store> openOrExit(const LibraryLocation &location)
{
    Result<std::unique_ptr<Store>> store = Store::open(location);
    if (!store) {
        std::fprintf(stderr, "%s\n", qPrintable(store.error().message));
        std::exit(1);
    }
    return std::move(*store);
}

std::unique_ptr<Slideshow> makeSlideshow(const std::vector<Asset *> &assets, int seed)
{
    std::vector<std::unique_ptr<Slide>> slides;
    for (int i = 0; i < slidesPerSlideshow; ++i) {
        Asset *const asset = assets[static_cast<size_t>((seed * slidesPerSlideshow + i) % pictureCount)];
        slides.push_back(std::make_unique<Slide>(asset, u"Five habits that changed my mornings %1"_s.arg(i),
                                                 u"and how to begin tomorrow"_s, TextStyle::boxed, i));
    }
    return std::make_unique<Slideshow>(std::move(slides), AspectRatio::tiktok, QUuid::createUuid(),
                                       u"Morning habits"_s);
}

/// The library that all benchmarks share; made once.
class Library
{
public:
    static const LibraryLocation &location()
    {
        static const Library library;
        return library.m_location;
    }

private:
    Library()
        : m_location(LibraryLocation::inFolder(m_folder.path()))
    {
        const std::unique_ptr<Store> store = openOrExit(m_location);
        QDir().mkpath(m_location.assetFolder());
        std::vector<Asset *> assets;
        for (int i = 0; i < assetCount; ++i) {
            const QString name = QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper() + u".jpg"_s;
            assets.push_back(store->insert(std::make_unique<Asset>(name, u"IMG_%1.jpg"_s.arg(i), nullptr)));
            if (i < pictureCount) {
                QFile file(assets.back()->fileURL().toLocalFile());
                if (!file.open(QIODevice::WriteOnly) || file.write("picture") < 0)
                    std::exit(1);
            }
        }
        for (int i = 0; i < slideshowCount; ++i)
            store->insert(makeSlideshow(assets, i));
        if (!store->flush())
            std::exit(1);
    }

    QTemporaryDir m_folder{QDir::currentPath() + "/store-bench-XXXXXX"_L1};
    LibraryLocation m_location;
};

void openLargeLibrary(benchmark::State &state)
{
    Library::location();
    for (auto _ : state) {
        std::unique_ptr<Store> store = openOrExit(Library::location());
        state.PauseTiming();
        store.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(openLargeLibrary)->Unit(benchmark::kMillisecond);

void closeLargeLibrary(benchmark::State &state)
{
    for (auto _ : state) {
        state.PauseTiming();
        std::unique_ptr<Store> store = openOrExit(Library::location());
        state.ResumeTiming();
        store.reset();
    }
}
BENCHMARK(closeLargeLibrary)->Unit(benchmark::kMillisecond);

void saveOneChange(benchmark::State &state)
{
    const std::unique_ptr<Store> store = openOrExit(Library::location());
    const std::vector<Slide *> slides = store->all<Slide>();
    size_t next = 0;
    double place = 0.1;
    for (auto _ : state) {
        slides[next]->setStyle(&SlideStyle::textX, place += 0.001);
        next = (next + 7919) % slides.size();
        if (!store->flush())
            state.SkipWithError("not saved");
    }
}
BENCHMARK(saveOneChange)->Unit(benchmark::kMicrosecond);

/// Image copies included.
void insert50Slideshows(benchmark::State &state)
{
    const std::unique_ptr<Store> store = openOrExit(Library::location());
    const std::vector<Asset *> assets = store->all<Asset>();
    const LiveQuery<Slideshow> newestFirst(
        *store, {}, [](const Slideshow &a, const Slideshow &b) { return a.createdAt() > b.createdAt(); });
    for (auto _ : state) {
        std::vector<Slideshow *> inserted;
        for (int i = 0; i < 50; ++i)
            inserted.push_back(store->insert(makeSlideshow(assets, i)));
        if (!store->flush())
            state.SkipWithError("not saved");
        state.PauseTiming();
        for (Slideshow *slideshow : inserted)
            store->remove(slideshow);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        state.ResumeTiming();
    }
}
BENCHMARK(insert50Slideshows)->Unit(benchmark::kMillisecond);

bool nameComesBefore(const Asset &a, const Asset &b)
{
    return a.name() < b.name();
}

void insertAssetUnderSortedQuery(benchmark::State &state)
{
    const std::unique_ptr<Store> store = openOrExit(Library::location());
    const LiveQuery<Asset> byName(*store, {}, nameComesBefore);
    for (auto _ : state) {
        Asset *const asset = store->insert(std::make_unique<Asset>(u"x.jpg"_s, u"IMG_5.jpg"_s, nullptr));
        state.PauseTiming();
        store->remove(asset);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        state.ResumeTiming();
    }
}
BENCHMARK(insertAssetUnderSortedQuery)->Unit(benchmark::kMicrosecond);

void setFilterOfSortedQuery(benchmark::State &state)
{
    const std::unique_ptr<Store> store = openOrExit(Library::location());
    LiveQuery<Asset> byName(*store, {}, nameComesBefore);
    int digit = 0;
    for (auto _ : state) {
        digit = (digit + 1) % 10;
        byName.setFilter(
            [digit](const Asset &asset) { return asset.name().endsWith(u"%1.jpg"_s.arg(digit)); });
    }
}
BENCHMARK(setFilterOfSortedQuery)->Unit(benchmark::kMillisecond);

/// All assets are in the collection, and two queries watch them.
void removeCollectionOf100000(benchmark::State &state)
{
    for (auto _ : state) {
        const std::unique_ptr<Store> store = openOrExit(Library::location());
        auto *const collection = store->insert(std::make_unique<Collection>(u"All"_s));
        for (Asset *asset : store->all<Asset>())
            asset->setCollection(collection);
        const LiveQuery<Asset> all(*store);
        const LiveQuery<Asset> byName(*store, {}, nameComesBefore);
        QElapsedTimer timer;
        timer.start();
        store->remove(collection);
        if (!store->flush())
            state.SkipWithError("not saved");
        state.SetIterationTime(static_cast<double>(timer.nsecsElapsed()) * 1e-9);
    }
}
BENCHMARK(removeCollectionOf100000)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(3);

int openOnce(const QString &folder)
{
    QElapsedTimer timer;
    timer.start();
    const std::unique_ptr<Store> store = openOrExit(LibraryLocation::inFolder(folder));
    const qint64 milliseconds = timer.elapsed();
    rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    std::printf("A process that opens the library: %lld ms, peak %.0f MB resident\n",
                static_cast<long long>(milliseconds), static_cast<double>(usage.ru_maxrss) / 1024);
    return 0;
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    if (argc == 3 && std::strcmp(argv[1], "--open-once") == 0)
        return openOnce(QString::fromLocal8Bit(argv[2]));
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    const QString folder = QFileInfo(Library::location().storeFile()).path();
    return QProcess::execute(QCoreApplication::applicationFilePath(), {u"--open-once"_s, folder});
}
