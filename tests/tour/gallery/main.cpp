// Goes through the states of the gallery and writes a picture of each into a folder: gallery_tour FOLDER.

#include "model/image_files.h"
#include "tests/ui/ui_session.h"
#include "ui/common/interface_fonts.h"
#include "ui/library/gallery_view.h"

#include <QtCore/QDir>
#include <QtTest/QtTest>
#include <QtWidgets/QApplication>

using namespace mosslantern;
using namespace Qt::StringLiterals;

namespace {

class GalleryTour
{
public:
    explicit GalleryTour(const QString &folder)
        : m_folder(folder)
    {
        m_folder.mkpath(u"."_s);
    }

    void run();

private:
    void addBatches();
    void addBatch(const QString &name, int count, AspectRatio shape, TextStyle style,
                  const QStringList &texts);
    Asset *nextPicture();
    void picture(const QString &name);
    void hover(const QString &objectName, int nth = 0);
    GalleryView &gallery() { return *m_session.window()->findChild<GalleryView *>(u"gallery"_s); }

    UiSession m_session;
    QDir m_folder;
    int m_pictures = 0;
};

Asset *GalleryTour::nextPicture()
{
    const QDir nature(u"/usr/share/backgrounds/mate/nature"_s);
    const QFileInfoList files = nature.entryInfoList({u"*.jpg"_s}, QDir::Files, QDir::Name);
    if (files.isEmpty())
        qFatal("mate-backgrounds is not installed");
    return *importAsset(QUrl::fromLocalFile(files[m_pictures++ % files.size()].filePath()),
                        m_session.store());
}

void GalleryTour::addBatch(const QString &name, int count, AspectRatio shape, TextStyle style,
                           const QStringList &texts)
{
    for (int i = 0; i < count; ++i) {
        std::vector<std::unique_ptr<Slide>> slides;
        for (qsizetype k = 0; k < texts.size(); ++k) {
            slides.push_back(std::make_unique<Slide>(nextPicture(), texts[(k + i) % texts.size()],
                                                     u"number %1"_s.arg(k + 1), style, slides.size()));
            slides.back()->setStyle(&SlideStyle::boxColorHex,
                                    style == TextStyle::boxed ? u"FFFFFF"_s : u"000000"_s);
        }
        m_session.store().insert(
            std::make_unique<Slideshow>(std::move(slides), shape, QUuid::createUuid(), name));
        QTest::qWait(2);
    }
}

void GalleryTour::addBatches()
{
    addBatch(
        u"A batch whose name goes on and on, much further than anyone would write it above a few cards, and "
        "then some more of it, so that it does not fit into the window"_s,
        1, AspectRatio::instagram, TextStyle::classic, {u"One slide"_s});
    addBatch(u"Quotes"_s, 6, AspectRatio::square, TextStyle::neon, {u"stay\ncurious"_s, u"keep going"_s});
    addBatch(u"Weekend in the woods 🌲"_s, 3, AspectRatio::instagram, TextStyle::boxed,
             {u"Pack light"_s, u"Leave early"_s, u"Walk slowly"_s});
    addBatch(u"Weekend in the woods 🌲"_s, 1, AspectRatio::square, TextStyle::classic, {});
    addBatch(u"Weekend in the woods 🌲"_s, 1, AspectRatio::tiktok, TextStyle::modern,
             {u"The last\nhour of light"_s, u"Home"_s});
    addBatch(u"Morning habits"_s, 3, AspectRatio::tiktok, TextStyle::classic,
             {u"5 habits that changed\nmy mornings ☀️"_s, u"Drink water first"_s,
              u"No phone\nuntil breakfast"_s, u"Write three lines"_s, u"Go to bed earlier"_s});
}

void GalleryTour::picture(const QString &name)
{
    QTest::qWait(700);
    const QString file = m_folder.filePath(name + u".png"_s);
    if (!m_session.grab().save(file))
        qFatal("%s cannot be written", qPrintable(file));
}

void GalleryTour::hover(const QString &objectName, int nth)
{
    const QQuickItem *const item = m_session.find(objectName, nth);
    if (!item)
        qFatal("there is no %s", qPrintable(objectName));
    QTest::mouseMove(m_session.window(), item->mapToScene(item->boundingRect().center()).toPoint());
}

void GalleryTour::run()
{
    m_session.open();
    m_session.click(u"sidebarRow2"_s);
    m_session.click(u"screenTab1"_s);
    picture(u"empty"_s);
    addBatches();
    QTest::qWait(1500);
    picture(u"batches"_s);
    hover(u"slideshowCard"_s, 1);
    picture(u"hover"_s);
    m_session.click(u"slideshowCard"_s, 1, Qt::RightButton);
    picture(u"menu"_s);
    m_session.key(Qt::Key_Escape);
    QTest::qWait(400);
    m_session.key(Qt::Key_Right);
    picture(u"keyboard"_s);
    hover(u"deleteBatch"_s);
    QTest::qWait(500);
    picture(u"tool-tip"_s);

    QQuickItem *const area = m_session.find(u"galleryArea"_s);
    area->setProperty("contentY", 560);
    picture(u"shapes-in-a-row"_s);
    area->setProperty("contentY", area->property("contentHeight").toDouble() - area->height());
    picture(u"end-with-long-name"_s);
    hover(u"batchName"_s, m_session.count(u"batchName"_s) - 1);
    QTest::qWait(500);
    picture(u"long-name-tool-tip"_s);
    m_session.click(u"deleteBatch"_s, m_session.count(u"deleteBatch"_s) - 1);
    picture(u"delete-long-name"_s);
    m_session.key(Qt::Key_Escape);
    QTest::qWait(400);
    area->setProperty("contentY", 0);
    m_session.settle();
    m_session.click(u"deleteBatch"_s);
    picture(u"delete"_s);
    m_session.key(Qt::Key_Escape);
    QTest::qWait(400);

    m_session.click(u"slideshowCard"_s, 1);
    QTest::qWait(800);
    picture(u"editor"_s);
    m_session.key(Qt::Key_Escape);
    QTest::qWait(400);
    m_session.window()->resize(1200, 730);
    picture(u"smallest"_s);
    m_session.window()->resize(1920, 1200);
    QTest::qWait(1000);
    picture(u"large"_s);
    m_session.window()->resize(1280, 830);
    QTest::qWait(500);

    m_session.click(u"exportBatch"_s);
    m_session.panels().answerFolder(m_folder.filePath(u"export"_s));
    const bool hasBegun = QTest::qWaitFor([&] { return gallery().exportRun()->written() > 0; }, 20000);
    m_session.window()->grabWindow().save(m_folder.filePath(u"exporting.png"_s));
    if (!hasBegun || !QTest::qWaitFor([&] { return !gallery().isExporting(); }, 60000))
        qFatal("nothing is exported");
    picture(u"after-export"_s);
}

} // namespace

int main(int argc, char **argv)
{
    QQuickWindow::setTextRenderType(QQuickWindow::NativeTextRendering);
    const QApplication application(argc, argv);
    if (argc != 2)
        qFatal("usage: gallery_tour FOLDER");
    if (const Result<> fonts = useInterfaceFonts(); !fonts)
        qFatal("%s", qPrintable(fonts.error().message));
    GalleryTour(QString::fromLocal8Bit(argv[1])).run();
}
