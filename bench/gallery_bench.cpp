// Speed of the gallery with many slideshows. bench/gallery.sh runs it:
//   gallery_bench prepare FOLDER COUNT BATCH PHOTOGRAPHS
//     makes a library: batches of BATCH slideshows of five slides, whose pictures are links to the
//     photographs
//   gallery_bench open FOLDER           from choosing the gallery to its first frame, and to all its pictures
//   gallery_bench scroll FOLDER SECONDS from the first card to the last in that time
//   gallery_bench export FOLDER TARGET  frames on the screen while the newest batch is exported

#include "bench/window_measures.h"
#include "model/asset.h"
#include "model/console.h"
#include "model/slideshow.h"
#include "ui/library/gallery_view.h"
#include "ui/slide/slide_preview_view.h"

#include <QtCore/QDir>
#include <QtCore/QTimer>
#include <QtWidgets/QApplication>

#include <cstdio>

using namespace mosslantern;
using namespace Qt::StringLiterals;

namespace {

int prepare(const QString &folder, int count, int batch, const QString &photographs)
{
    const LibraryLocation location = LibraryLocation::inFolder(folder);
    QDir().mkpath(location.assetFolder());
    const QFileInfoList pictures = QDir(photographs).entryInfoList({u"*.jpg"_s}, QDir::Files, QDir::Name);
    const auto store = Store::open(location);
    if (!store || pictures.isEmpty())
        return 1;
    // Slides of assets without a file keep no copies; the files come afterwards.
    std::FILE *const nowhere = std::fopen("/dev/null", "w");
    setConsoleStream(nowhere);
    QStringList names;
    for (int i = 0; i < count; ++i) {
        names.append(u"%1.jpg"_s.arg(i, 5, 10, QChar(u'0')));
        Asset *const asset = (*store)->insert(std::make_unique<Asset>(names[i], names[i], nullptr));
        std::vector<std::unique_ptr<Slide>> slides;
        for (int k = 0; k < 5; ++k)
            slides.push_back(
                std::make_unique<Slide>(asset, u"Slide %1 of\nslideshow %2 ☀️"_s.arg(k + 1).arg(i + 1),
                                        u"with a subtitle"_s, allTextStyles[i % 4], k));
        (*store)->insert(std::make_unique<Slideshow>(std::move(slides), allAspectRatios[i / batch % 3],
                                                     QUuid::createUuid(), u"Batch %1"_s.arg(i / batch)));
    }
    for (int i = 0; i < count; ++i)
        QFile::link(pictures[i % pictures.size()].filePath(),
                    QDir(location.assetFolder()).filePath(names[i]));
    return (*store)->flush() ? 0 : 1;
}

int countPreviews(const QQuickItem *item, bool loaded)
{
    const auto *const preview = qobject_cast<const SlidePreviewView *>(item);
    int count = preview && (!loaded || preview->isLoaded()) ? 1 : 0;
    for (const QQuickItem *child : item->childItems())
        count += countPreviews(child, loaded);
    return count;
}

/// The window, and what happens in it from when the gallery is chosen.
class Session
{
public:
    explicit Session(const QString &folder)
        : m_app(optionsFor(folder))
    {}

    bool start() { return m_app.start() == StartOutcome::shown && m_app.window(); }
    QQuickWindow &window() { return *m_app.window(); }

    void openScreen() { window().findChild<QObject *>(u"contentView"_s)->setProperty("selectedIndex", 2); }
    void openGallery()
    {
        QQuickItem *tabs = findItem(window().contentItem(), u"screenTab1"_s);
        while (!tabs->property("currentIndex").isValid())
            tabs = tabs->parentItem();
        tabs->setProperty("currentIndex", 1);
    }
    QQuickItem *area() { return findItem(window().contentItem(), u"galleryArea"_s); }
    GalleryView &gallery() { return *window().findChild<GalleryView *>(u"gallery"_s); }

private:
    MosslanternApp m_app;
};

void measureOpening(Session &session)
{
    auto *const clock = new QElapsedTimer;
    clock->start();
    session.openGallery();
    QObject::connect(
        &session.window(), &QQuickWindow::frameSwapped, &session.window(),
        [&session, clock, isFirst = true]() mutable {
            const double now = static_cast<double>(clock->nsecsElapsed()) / 1e6;
            const int cards = countPreviews(session.area(), false);
            if (std::exchange(isFirst, false))
                std::printf("first frame after %.0f ms, %d cards; ", now, cards);
            if (countPreviews(session.area(), true) == cards) {
                std::printf("all pictures after %.0f ms\n", now);
                finish();
            }
        },
        Qt::QueuedConnection);
}

void measureExport(Session &session, const QString &target)
{
    GalleryView &gallery = session.gallery();
    auto *const frames = new Frames(session.window());
    QObject::connect(&gallery, &GalleryView::isExportingChanged, &gallery, [=, &gallery] {
        if (gallery.isExporting())
            return;
        std::printf("%.1f s: ", frames->seconds());
        frames->report();
        finish();
    });
    gallery.exportTo(gallery.groupedSlideshows().constFirst(), target);
}

int measure(const QString &folder, const std::function<void(Session &)> &act, bool inGallery)
{
    Session session(folder);
    if (!session.start())
        return 1;
    constexpr int calm = 1500;
    QTimer::singleShot(calm, &session.window(), [&] { session.openScreen(); });
    QTimer::singleShot(2 * calm, &session.window(), [&] {
        if (inGallery)
            session.openGallery();
    });
    QTimer::singleShot(4 * calm, &session.window(), [&] { act(session); });
    return QApplication::exec();
}

} // namespace

int main(int argc, char **argv)
{
    QQuickWindow::setTextRenderType(QQuickWindow::NativeTextRendering);
    QStringList words;
    for (int i = 1; i < argc; ++i)
        words.append(QString::fromLocal8Bit(argv[i]));
    if (words.value(0) == "prepare"_L1 && words.size() == 5) {
        const QCoreApplication application(argc, argv);
        return prepare(words[1], words[2].toInt(), words[3].toInt(), words[4]);
    }
    const QApplication application(argc, argv);
    if (words.value(0) == "open"_L1 && words.size() == 2)
        return measure(words[1], measureOpening, false);
    if (words.value(0) == "scroll"_L1 && words.size() == 3)
        return measure(
            words[1],
            [&](Session &session) { scrollThrough(session.window(), *session.area(), words[2].toDouble()); },
            true);
    if (words.value(0) == "export"_L1 && words.size() == 3)
        return measure(
            words[1], [&](Session &session) { measureExport(session, words[2]); }, true);
    std::fprintf(stderr, "see bench/gallery.sh\n");
    return 2;
}
