// From photographs to exported pictures through the window alone, with the application ended, started again
// and killed in between.

#include "app/gui/mosslantern_app.h"
#include "model/collection.h"
#include "model/image_files.h"
#include "tests/model/library_dump.h"
#include "tests/ui/generator/generator_test.h"
#include "ui/library/gallery_view.h"

#include <QtCore/QDirIterator>
#include <QtCore/QMimeData>
#include <QtCore/QProcess>
#include <QtCore/QRandomGenerator>
#include <QtWidgets/QApplication>

using namespace mosslantern;
using namespace Qt::StringLiterals;

namespace {

constexpr auto generateForEver = "--generate-for-ever";

const QString content =
    u"{\"slides\": [{\"main\": \"One ☀️\", \"subtitle\": \"a\"}, {\"main\": \"Two\"}, "
    "{\"main\": \"Three\\nlines\\nhere\", \"subtitle\": \"b\"}]}"_s;

QStringList filesIn(const QString &folder)
{
    QStringList files;
    QDirIterator found(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (found.hasNext())
        files.append(QDir(folder).relativeFilePath(found.next()));
    files.sort();
    return files;
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

/// The application as it is, on the library in `folder`: presses Generate until it is killed.
int runGeneratingApplication(const QString &folder)
{
    MosslanternApp app({.location = LibraryLocation::inFolder(folder),
                        .stateFile = QDir(folder).filePath(u"state.ini"_s),
                        .updateFeed = QUrl(QString(), QUrl::StrictMode)});
    if (app.start() != StartOutcome::shown || !app.window())
        return 1;
    QQuickItem *const root = app.window()->contentItem();
    app.window()->findChild<QObject *>(u"contentView"_s)->setProperty("selectedIndex", 2);
    auto &generator = *app.window()->findChild<SlideshowsView *>()->generator();
    generator.setTextInput(QString(5, u'\n').replace(u'\n', u"A line for one slide\n"_s));
    generator.setBulkCount(50);
    QTimer press;
    press.callOnTimeout([&] {
        if (QQuickItem *const button = findItem(root, u"generate"_s))
            QMetaObject::invokeMethod(button, "clicked");
        std::printf("generated\n");
        std::fflush(stdout);
    });
    press.start(1);
    return QApplication::exec();
}

} // namespace

class WholeApplicationTest : public GeneratorTest
{
    Q_OBJECT

private:
    QList<QUrl> pictures()
    {
        QList<QUrl> files;
        for (int i = 0; i < 6; ++i)
            files.append(pictureFile(u"picture %1.png"_s.arg(i), QColor::fromHsv(60 * i, 200, 220)));
        return files;
    }

    void importPictures();
    void makeCollection();
    void chooseInPanel(const QString &picker, int steps);
    void generate(const QString &batch, int count);
    bool showGallery() { return session().click(u"screenTab1"_s) && session().find(u"galleryArea"_s); }
    void editFirstSlideshow(const Slideshow *&edited);
    void exportFirstBatch(const QString &folder);
    void deleteFirstBatch(const QString &name);
    GalleryView &gallery() { return *session().window()->findChild<GalleryView *>(u"gallery"_s); }

private slots:
    void tellsTheWholeStory();
    void isWholeAfterBeingKilled();
};

void WholeApplicationTest::importPictures()
{
    QVERIFY(session().click(u"addTile"_s));
    QVERIFY(session().panels().isShown());
    QList<QUrl> files = pictures();
    const QUrl dropped = files.takeLast();
    session().panels().answer(files);
    QTRY_COMPARE(store().all<Asset>().size(), 5u);

    QMimeData data;
    data.setUrls({dropped});
    QQuickWindow &window = *session().window();
    const QPointF middle(window.width() / 2.0, window.height() / 2.0);
    QDragEnterEvent enter(middle.toPoint(), Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&window, &enter);
    QDropEvent drop(middle, Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&window, &drop);
    QTRY_COMPARE(store().all<Asset>().size(), 6u);
}

void WholeApplicationTest::makeCollection()
{
    QVERIFY(session().click(u"sidebarRow1"_s));
    QVERIFY(session().click(u"newCollection"_s));
    QTRY_VERIFY(session().find(u"newCollectionName"_s)->hasActiveFocus());
    session().type(u"Bright"_s);
    session().key(Qt::Key_Return);
    QTRY_VERIFY(!session().find(u"newCollectionName"_s));
    QVERIFY(session().click(u"collectionRow"_s));
    QVERIFY(session().click(u"addAssets"_s));
    for (const int cell : {0, 2, 3})
        QVERIFY(session().click(u"pickCell"_s, cell));
    QVERIFY(session().click(u"confirmAddAssets"_s));
    QTRY_COMPARE(store().all<Collection>().front()->assetCount(), 3);
    QTRY_VERIFY(!session().find(u"confirmAddAssets"_s));
}

void WholeApplicationTest::chooseInPanel(const QString &picker, int steps)
{
    scrollTo(picker);
    setFocus(picker);
    for (int i = 0; i < steps; ++i)
        session().key(Qt::Key_Down);
}

void WholeApplicationTest::generate(const QString &batch, int count)
{
    QVERIFY(session().click(u"screenTab0"_s));
    // The name has its field among the settings for the AI service.
    QVERIFY(clickInPanel(u"aiSwitch"_s));
    QVERIFY(clickInPanel(u"batchName"_s));
    session().key(Qt::Key_A, Qt::ControlModifier);
    session().type(batch);
    QVERIFY(clickInPanel(u"aiSwitch"_s));
    setFocus(u"bulkCountSlider"_s);
    session().key(count == 1 ? Qt::Key_Home : Qt::Key_End);
    const size_t before = store().all<Slideshow>().size();
    QVERIFY(clickInPanel(u"generate"_s));
    QTRY_COMPARE(store().all<Slideshow>().size(), before + static_cast<size_t>(count));
}

/// The first as they lie on the screen: a card under the pointer stands a little higher than its neighbours.
void WholeApplicationTest::editFirstSlideshow(const Slideshow *&edited)
{
    QVERIFY(session().click(u"slideshowCard"_s));
    QTRY_VERIFY(session().find(u"mainField"_s));
    edited = gallery().selectedSlideshow();
    QVERIFY(session().click(u"mainFieldArea"_s));
    session().key(Qt::Key_A, Qt::ControlModifier);
    session().type(u"Written by hand"_s);
    QVERIFY(session().click(u"stylePicker1"_s));
    QVERIFY(session().click(u"applyToBatch"_s));
    QVERIFY(session().click(u"done"_s));
    QTRY_VERIFY(!session().find(u"slideList"_s));
}

void WholeApplicationTest::exportFirstBatch(const QString &folder)
{
    QVERIFY(session().click(u"exportBatch"_s));
    session().panels().answerFolder(folder);
    QVERIFY(gallery().isExporting());
    QTRY_VERIFY_WITH_TIMEOUT(!gallery().isExporting(), 60000);
    QCOMPARE(session().panels().openedFolders().last(), folder);
}

void WholeApplicationTest::deleteFirstBatch(const QString &name)
{
    QVERIFY(session().click(u"deleteBatch"_s));
    QVERIFY(session().findText(u"Delete "_s + name));
    QVERIFY(session().click(u"confirmDeleteBatch"_s));
    QTRY_VERIFY(!session().findText(name) && !session().find(u"confirmDeleteBatch"_s));
}

void WholeApplicationTest::tellsTheWholeStory()
{
    session().open();
    importPictures();
    makeCollection();
    QVERIFY(session().click(u"sidebarRow2"_s));
    chooseInPanel(u"sourcePicker"_s, 1);
    chooseInPanel(u"shapePicker"_s, 2);
    QVERIFY(clickInPanel(u"contentEditorArea"_s));
    session().key(Qt::Key_A, Qt::ControlModifier);
    session().type(content);
    generate(u"Sunny/days"_s, 50);
    const QList<Asset *> sources = store().all<Collection>().front()->assets();
    for (const Slideshow *slideshow : store().all<Slideshow>()) {
        QCOMPARE(slideshow->aspectRatio(), AspectRatio::square);
        QCOMPARE(slideshow->slides().size(), 3);
        QCOMPARE(slideshow->slides()[0]->text(), u"One ☀️"_s);
        QCOMPARE(slideshow->slides()[2]->text(), u"Three\nlines\nhere"_s);
        for (const Slide *slide : slideshow->slides())
            QVERIFY(sources.contains(slide->asset()));
    }
    generate(u"Mistake"_s, 1);

    QVERIFY(showGallery());
    QVERIFY(session().findText(u"50 items"_s) && session().findText(u"1 items"_s));
    deleteFirstBatch(u"Mistake"_s);
    QCOMPARE(store().all<Slideshow>().size(), 50u);
    const Slideshow *edited = nullptr;
    editFirstSlideshow(edited);
    QVERIFY(edited);
    QCOMPARE(edited->slides()[0]->text(), u"Written by hand"_s);
    for (const Slideshow *slideshow : store().all<Slideshow>()) {
        for (const Slide *slide : slideshow->slides())
            QCOMPARE(slide->style().textStyle, TextStyle::boxed);
    }
    const QString byWindow = session().library().path(u"window"_s);
    exportFirstBatch(byWindow);

    const QStringList before = dump(store());
    session().close();
    session().open();
    QCOMPARE(dump(store()), before);
    QVERIFY(session().click(u"sidebarRow2"_s));
    QVERIFY(showGallery());
    QVERIFY(session().findText(u"Sunny/days"_s) && session().findText(u"50 items"_s));
    const QString library = session().library().path(u"library"_s);
    session().close();

    // The command-line tool draws the same pixels.
    const QString byTool = session().library().path(u"tool"_s);
    QProcess tool;
    tool.start(QStringLiteral(MOSSLANTERN_CLI),
               {u"export"_s, u"--library"_s, library, u"--batch"_s, u"Sunny/days"_s, u"--to"_s, byTool});
    QVERIFY(tool.waitForFinished(60000));
    QCOMPARE(tool.readAllStandardError(), QByteArray());
    QCOMPARE(tool.exitCode(), 0);
    QCOMPARE(filesIn(byWindow), filesIn(byTool));
    QCOMPARE(filesIn(byWindow).size(), 150);
    for (const QString &file : filesIn(byWindow)) {
        const QImage image(byWindow + u'/' + file);
        QCOMPARE(image.size(), QSize(240, 240));
        QVERIFY2(image == QImage(byTool + u'/' + file), qPrintable(file));
    }
}

void WholeApplicationTest::isWholeAfterBeingKilled()
{
    QTemporaryDir folder;
    {
        const auto store = Store::open(LibraryLocation::inFolder(folder.path()));
        QVERIFY(store);
        for (const QUrl &picture : pictures())
            QVERIFY(importAsset(picture, **store));
    }
    size_t saved = 0;
    // The first rounds may all be over before anything is saved.
    for (int round = 0; round < 6 || (saved == 0 && round < 60); ++round) {
        QProcess application;
        application.start(QCoreApplication::applicationFilePath(),
                          {QString::fromLatin1(generateForEver), folder.path()});
        QVERIFY(application.waitForReadyRead(20000));
        QTest::qWait(QRandomGenerator::global()->bounded(400));
        application.kill();
        QVERIFY(application.waitForFinished());
        QCOMPARE(application.exitStatus(), QProcess::CrashExit);

        const auto store = Store::open(LibraryLocation::inFolder(folder.path()));
        QVERIFY2(store, store ? "" : qPrintable(store.error().message));
        QCOMPARE((*store)->all<Asset>().size(), 6u);
        const auto slideshows = (*store)->all<Slideshow>();
        QVERIFY(slideshows.size() >= saved);
        saved = slideshows.size();
        for (const Slideshow *slideshow : slideshows) {
            QCOMPARE(slideshow->slides().size(), 5);
            for (int i = 0; i < 5; ++i) {
                const Slide *const slide = slideshow->slides()[i];
                QCOMPARE(slide->order(), i);
                QVERIFY(!slide->text().isEmpty() && slide->imageFilename());
                QCOMPARE(readFile(slide->imageURL().toLocalFile()),
                         readFile(slide->asset()->fileURL().toLocalFile()));
            }
        }
    }
    QVERIFY(saved > 0);
}

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    if (argc == 3 && QByteArrayView(argv[1]) == generateForEver)
        return runGeneratingApplication(QString::fromLocal8Bit(argv[2]));
    WholeApplicationTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_whole_application.moc"
