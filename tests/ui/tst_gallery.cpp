#include "model/image_files.h"
#include "tests/table.h"
#include "tests/ui/window_test.h"
#include "ui/library/gallery_view.h"

#include <QtCore/QDirIterator>

#include <cmath>

using namespace mosslantern;
using namespace Qt::StringLiterals;

class GalleryTest : public WindowTest
{
    Q_OBJECT

private:
    /// A slideshow that is younger than all before it.
    Slideshow *add(const std::optional<QString> &batch, int slides = 1,
                   std::optional<AspectRatio> shape = AspectRatio::square)
    {
        const auto assets = store().all<Asset>();
        Asset *const asset =
            assets.empty() ? *importAsset(pictureFile(u"blue.png"_s, Qt::blue), store()) : assets.front();
        std::vector<std::unique_ptr<Slide>> made;
        for (int i = 0; i < slides; ++i)
            made.push_back(std::make_unique<Slide>(asset, u"Text %1"_s.arg(i + 1), QString(),
                                                   TextStyle::classic, made.size()));
        return store().insert(
            std::make_unique<Slideshow>(std::move(made), shape, QUuid::createUuid(), batch));
    }

    bool openGallery()
    {
        session().open();
        return session().click(u"sidebarRow2"_s) && session().click(u"screenTab1"_s) && area();
    }

    GalleryView &gallery() { return *session().window()->findChild<GalleryView *>(u"gallery"_s); }
    QQuickItem *area() { return session().find(u"galleryArea"_s); }
    Slideshow *shownBy(QQuickItem *card) const { return card->property("slideshow").value<Slideshow *>(); }
    Slideshow *current()
    {
        for (int i = 0; i < session().count(u"slideshowCard"_s); ++i) {
            QQuickItem *const card = session().find(u"slideshowCard"_s, i);
            if (card->property("isMarked").toBool())
                return shownBy(card);
        }
        return nullptr;
    }
    QQuickItem *cardOf(const Slideshow *slideshow)
    {
        for (int i = 0; i < session().count(u"slideshowCard"_s); ++i) {
            QQuickItem *const card = session().find(u"slideshowCard"_s, i);
            if (shownBy(card) == slideshow)
                return card;
        }
        return nullptr;
    }
    /// The texts of a kind, from the top down.
    QStringList texts(const QString &objectName)
    {
        QStringList found;
        for (int i = 0; i < session().count(objectName); ++i)
            found.append(session().find(objectName, i)->property("text").toString());
        return found;
    }
    void hover(QQuickItem *item)
    {
        QTest::mouseMove(session().window(), item->mapToScene(item->boundingRect().center()).toPoint());
        settle();
    }

private slots:
    void showsBatchesNewestFirstAndFollowsTheStore();
    void deletesOneSlideshowWithoutAsking();
    void asksBeforeItDeletesABatch();
    void exportsABatch();
    void reportsAFailedExport();
    void tellsWhatWasNotWritten();
    void survivesWhatGoesWhileItExports();
    void opensTheEditorAndShowsWhatItChanged();
    void keepsTheShapeOfTheCanvas_data();
    void keepsTheShapeOfTheCanvas();
    void raisesTheCardUnderThePointer();
    void isUsableByKeyboard();
    void keepsItsPlaceAndMakesOnlyWhatIsInView();
};

void GalleryTest::showsBatchesNewestFirstAndFollowsTheStore()
{
    QVERIFY(openGallery());
    QVERIFY(session().findText(u"No Slideshows"_s));
    QVERIFY(session().findText(u"Generate some magic on the left!"_s));

    add(u"Old"_s, 2);
    QTest::qWait(2);
    Slideshow *const nameless = add({}, 1, std::nullopt);
    QTest::qWait(2);
    Slideshow *const literal = add(u"Uncategorized"_s, 0, AspectRatio::instagram);
    settle();
    QVERIFY(!session().findText(u"No Slideshows"_s));
    QCOMPARE(texts(u"batchName"_s), QStringList({u"Uncategorized"_s, u"Old"_s}));
    QCOMPARE(texts(u"batchCount"_s), QStringList({u"2 items"_s, u"1 items"_s}));
    QVERIFY(cardOf(literal)->x() < cardOf(nameless)->x());
    // Of different heights, they stand in the middle of their row.
    const auto middle = [&](const Slideshow *slideshow) {
        return cardOf(slideshow)->y() + cardOf(slideshow)->height() / 2;
    };
    QVERIFY(std::abs(middle(literal) - middle(nameless)) <= 1);

    // A second run under an old name brings its batch to the front.
    QTest::qWait(2);
    Slideshow *const newest = add(u"Old"_s, 5);
    settle();
    QCOMPARE(texts(u"batchName"_s), QStringList({u"Old"_s, u"Uncategorized"_s}));
    QCOMPARE(texts(u"batchCount"_s), QStringList({u"2 items"_s, u"2 items"_s}));
    QCOMPARE(shownBy(session().find(u"slideshowCard"_s)), newest);
    QCOMPARE(texts(u"cardSlideCount"_s).first(2), QStringList({u"5 Slides"_s, u"2 Slides"_s}));
    QVERIFY(texts(u"cardShape"_s).contains(displayName(AspectRatio::tiktok)));
    QVERIFY(texts(u"cardSlideCount"_s).contains(u"0 Slides"_s));
}

void GalleryTest::deletesOneSlideshowWithoutAsking()
{
    add(u"A"_s);
    add(u"A"_s, 3);
    QVERIFY(openGallery());
    Slideshow *const doomed = shownBy(session().find(u"slideshowCard"_s, 1));
    QVERIFY(session().click(u"slideshowCard"_s, 1, Qt::RightButton));
    QVERIFY(session().click(u"deleteSlideshow"_s));
    QCOMPARE(store().all<Slideshow>().size(), 1u);
    QVERIFY(store().all<Slideshow>().front() != doomed);
    QTRY_COMPARE(session().count(u"slideshowCard"_s), 1);
    QCOMPARE(texts(u"batchCount"_s), QStringList{u"1 items"_s});
    QVERIFY(!gallery().selectedSlideshow());
}

void GalleryTest::asksBeforeItDeletesABatch()
{
    for (int i = 0; i < 3; ++i)
        add(u"Batch A"_s, 2);
    add({});
    QVERIFY(openGallery());
    QVERIFY(session().click(u"deleteBatch"_s, 1));
    QTRY_VERIFY(session().findText(u"Delete Batch?"_s));
    QVERIFY(session().findText(u"Are you sure you want to delete all 3 slideshows in 'Batch A'? "
                               "This action cannot be undone."_s));
    QVERIFY(session().findText(u"Delete Batch A"_s));
    QVERIFY(session().click(u"cancelDeleteBatch"_s));
    QTRY_VERIFY(!session().find(u"cancelDeleteBatch"_s));
    QCOMPARE(store().all<Slideshow>().size(), 4u);

    // Return answers with what does no harm.
    QVERIFY(session().click(u"deleteBatch"_s, 1));
    QTRY_VERIFY(session().find(u"cancelDeleteBatch"_s)->hasActiveFocus());
    session().key(Qt::Key_Return);
    QTRY_VERIFY(!session().find(u"cancelDeleteBatch"_s));
    QCOMPARE(store().all<Slideshow>().size(), 4u);

    // What comes into the batch, and what goes, while the question is open.
    QVERIFY(session().click(u"deleteBatch"_s, 1));
    QTRY_VERIFY(session().find(u"confirmDeleteBatch"_s));
    Slideshow *const late = add(u"Batch A"_s);
    store().remove(store().all<Slideshow>().front());
    QVERIFY(session().click(u"confirmDeleteBatch"_s));
    QCOMPARE(store().all<Slideshow>().size(), 2u);
    QCOMPARE(store().all<Slideshow>().back(), late);
    QTRY_COMPARE(session().count(u"slideshowCard"_s), 2);
    QCOMPARE(gallery().batchToDelete()->name, u"Batch A"_s);
    QVERIFY(gallery().batchToDelete()->slideshows.isEmpty());
}

void GalleryTest::exportsABatch()
{
    add(u"other"_s);
    for (const int slides : {1, 3})
        add(u"Cats/Dogs"_s, slides);
    QVERIFY(openGallery());
    const QString base = session().library().path(u"out"_s);
    QVERIFY(session().click(u"exportBatch"_s));
    QCOMPARE(session().panels().folderRequest().acceptLabel, u"Export Batch"_s);
    QCOMPARE(session().panels().folderRequest().message, u"Choose a location for the batch export"_s);
    QCOMPARE(session().panels().folderRequest().suggestedName, u"Export_Cats/Dogs"_s);
    session().panels().answerFolder({});
    QVERIFY(!gallery().isExporting());

    QVERIFY(session().click(u"exportBatch"_s));
    session().panels().answerFolder(base);
    QVERIFY(gallery().isExporting());
    QVERIFY(session().find(u"exportOverlay"_s) && session().findText(u"Exporting..."_s));
    QVERIFY(gallery().context()->work().isExporting());
    QCOMPARE(texts(u"exportProgress"_s), QStringList{u"0 of 4 slides written"_s});
    // Neither the pointer nor the keys get through to the gallery.
    const QPointF card = session().find(u"slideshowCard"_s)->mapToScene({20, 20});
    QTest::mouseClick(session().window(), Qt::LeftButton, {}, card.toPoint());
    QTest::keyClick(session().window(), Qt::Key_Delete);
    QTest::keyClick(session().window(), Qt::Key_Return);
    QVERIFY(!gallery().selectedSlideshow());
    QTRY_VERIFY(!gallery().isExporting());
    QCOMPARE(store().all<Slideshow>().size(), 3u);
    QTRY_VERIFY(!session().find(u"exportOverlay"_s));
    QTRY_VERIFY(session().find(u"exportBatch"_s)->hasActiveFocus());
    QVERIFY(!gallery().context()->work().isExporting());

    QStringList files;
    QDirIterator found(base, QDir::Files, QDirIterator::Subdirectories);
    while (found.hasNext())
        files.append(QDir(base).relativeFilePath(found.next()));
    files.sort();
    QCOMPARE(files,
             QStringList({u"Cats-Dogs/Slideshow_1/Slide_1.png"_s, u"Cats-Dogs/Slideshow_1/Slide_2.png"_s,
                          u"Cats-Dogs/Slideshow_1/Slide_3.png"_s, u"Cats-Dogs/Slideshow_2/Slide_1.png"_s}));
    QCOMPARE(QImage(base + u'/' + files.first()).size(), QSize(240, 240));
    QCOMPARE(session().panels().openedFolders(), QStringList{base});
}

void GalleryTest::reportsAFailedExport()
{
    add(u"A"_s);
    QVERIFY(openGallery());
    const QString file = session().library().writeFile(u"file"_s, "x");
    const ConsoleCapture console;
    QVERIFY(session().click(u"exportBatch"_s));
    session().panels().answerFolder(file);
    QTRY_VERIFY(!gallery().isExporting());
    QCOMPARE(console.lines().size(), 1);
    QVERIFY2(console.lines().constFirst().startsWith("Export failed: The folder"_L1),
             qPrintable(console.lines().constFirst()));
    QVERIFY(session().panels().openedFolders().isEmpty());
    QVERIFY(session().click(u"slideshowCard"_s));
    QVERIFY(gallery().selectedSlideshow());
}

void GalleryTest::tellsWhatWasNotWritten()
{
    add(u"A"_s, 3);
    QVERIFY(openGallery());
    const QString base = session().library().path(u"out"_s);
    QVERIFY(QDir().mkpath(base + u"/A/Slideshow_1/Slide_2.png"_s));
    for (int i = 0; i < 2; ++i) {
        QVERIFY(session().click(u"exportBatch"_s));
        session().panels().answerFolder(base);
        QVERIFY(session().findText(u"Exporting..."_s));
        QTRY_VERIFY(!gallery().isExporting());
        QVERIFY(session().findText(u"Some slides could not be written"_s));
        QCOMPARE(texts(u"exportProgress"_s), QStringList{u"2 of 3 slides written, 1 could not be"_s});
        // The key ends it, and does nothing beneath.
        session().key(Qt::Key_Delete);
        QTRY_VERIFY(!session().find(u"exportOverlay"_s));
        QCOMPARE(store().all<Slideshow>().size(), 1u);
        QTRY_VERIFY(session().find(u"exportBatch"_s)->hasActiveFocus());
    }
}

void GalleryTest::survivesWhatGoesWhileItExports()
{
    for (int i = 0; i < 4; ++i)
        add(u"A"_s);
    QVERIFY(openGallery());
    const QString base = session().library().path(u"out"_s);
    QVERIFY(session().click(u"exportBatch"_s));
    session().panels().answerFolder(base);
    // The first is on its way; the others go before their turn.
    const auto all = store().all<Slideshow>();
    store().remove(all[0]);
    store().remove(all[1]);
    QTRY_VERIFY(!gallery().isExporting());
    QCOMPARE(QDir(base + u"/A"_s).entryList(QDir::Dirs | QDir::NoDotAndDotDot),
             QStringList({u"Slideshow_1"_s, u"Slideshow_2"_s}));

    // It goes on when the screen is left, but not beyond the window.
    const QString left = session().library().path(u"left"_s);
    QVERIFY(session().click(u"exportBatch"_s));
    session().panels().answerFolder(left);
    QVERIFY(session().click(u"sidebarRow0"_s));
    QTRY_COMPARE(session().panels().openedFolders().size(), 2);
    QVERIFY(QFile::exists(left + u"/A/Slideshow_2/Slide_1.png"_s));

    QVERIFY(session().click(u"sidebarRow2"_s));
    QVERIFY(session().click(u"screenTab1"_s));
    QTemporaryDir closed;
    QVERIFY(session().click(u"exportBatch"_s));
    session().panels().answerFolder(closed.path());
    QMetaObject::invokeMethod(this, "cleanup");
    QTest::qWait(100);
    QVERIFY(QDir(closed.path() + u"/A/Slideshow_1"_s).entryList(QDir::Files).isEmpty());
}

void GalleryTest::opensTheEditorAndShowsWhatItChanged()
{
    Slideshow *const older = add(u"A"_s, 2);
    Slideshow *const slideshow = add(u"A"_s, 2);
    QVERIFY(openGallery());
    QQuickItem *const preview = session().find(u"cardPreview"_s);
    QTRY_VERIFY(preview->property("isLoaded").toBool());
    const QImage before = session().grab();
    QVERIFY(session().click(u"slideshowCard"_s));
    QCOMPARE(gallery().selectedSlideshow(), slideshow);
    QTRY_VERIFY(session().find(u"slideEntry1"_s));
    slideshow->slides().constFirst()->setText(u"Another text"_s);
    QVERIFY(session().click(u"done"_s));
    QTRY_VERIFY(!session().find(u"slideEntry1"_s));
    QTRY_VERIFY(!gallery().selectedSlideshow());
    QVERIFY(area()->hasActiveFocus());
    const QRect place = preview->mapRectToScene(preview->boundingRect()).toRect().adjusted(20, 20, -20, -20);
    QVERIFY(session().grab().copy(place) != before.copy(place));

    // A slideshow that goes takes its editor with it.
    session().key(Qt::Key_Right);
    session().key(Qt::Key_Return);
    QTRY_VERIFY(session().find(u"slideEntry0"_s));
    QCOMPARE(gallery().selectedSlideshow(), older);
    store().remove(older);
    QVERIFY(!gallery().selectedSlideshow());
    QTRY_VERIFY(!session().find(u"slideEntry0"_s));
    QTRY_COMPARE(session().count(u"slideshowCard"_s), 1);
}

void GalleryTest::keepsTheShapeOfTheCanvas_data()
{
    const auto row = table<AspectRatio>({"shape"});
    row("9:16", AspectRatio::tiktok);
    row("4:5", AspectRatio::instagram);
    row("1:1", AspectRatio::square);
}

void GalleryTest::keepsTheShapeOfTheCanvas()
{
    QFETCH(const AspectRatio, shape);
    add(u"A"_s, 3, shape);
    QVERIFY(openGallery());
    QVERIFY(session().click(u"slideshowCard"_s));
    for (const QString &entry : {QString(), u"slideEntry1"_s, u"slideEntry2"_s, u"slideEntry0"_s}) {
        QVERIFY(entry.isEmpty() || session().click(entry));
        QTRY_VERIFY(session().find(u"canvasContent"_s));
        const QQuickItem *const canvas = session().find(u"canvasContent"_s);
        QVERIFY(canvas->height() > 300);
        QVERIFY(std::abs(canvas->width() - canvas->height() * widthToHeight(shape)) <= 1);
    }
}

void GalleryTest::raisesTheCardUnderThePointer()
{
    add(u"A"_s);
    QVERIFY(openGallery());
    QQuickItem *const card = session().find(u"slideshowCard"_s);
    QCOMPARE(card->scale(), 1.0);
    hover(card);
    // Of damping 0.825: beyond its end by e^(-0.825 pi / sqrt(1 - 0.825^2)), about 1 %.
    double largest = 0;
    for (QDeadlineTimer end(1000); !end.hasExpired(); QTest::qWait(5))
        largest = std::max(largest, card->property("lift").toDouble());
    QTRY_COMPARE(card->scale(), 1.02);
    QVERIFY2(largest > 1 && largest < 1.02, qPrintable(QString::number(largest)));
    QTest::mouseMove(session().window(), {400, 700});
    QTRY_COMPARE(card->scale(), 1.0);
}

void GalleryTest::isUsableByKeyboard()
{
    QList<Slideshow *> made;
    for (int i = 0; i < 9; ++i)
        made.prepend(add(i < 3 ? u"old"_s : u"new"_s));
    QVERIFY(openGallery());
    // Six in the first batch: four and two; then three in the second.
    QTRY_VERIFY(area()->hasActiveFocus());
    const QList<std::pair<Qt::Key, int>> path{{Qt::Key_Right, 1}, {Qt::Key_Right, 2}, {Qt::Key_Down, 5},
                                              {Qt::Key_Down, 7},  {Qt::Key_Left, 6},  {Qt::Key_Left, 5},
                                              {Qt::Key_Up, 1},    {Qt::Key_End, 8},   {Qt::Key_Down, 8},
                                              {Qt::Key_Home, 0},  {Qt::Key_Left, 0},  {Qt::Key_PageDown, 6}};
    for (const auto &[key, expected] : path) {
        session().key(key);
        QCOMPARE(made.indexOf(current()), expected);
    }
    // Held down, the key deletes one; the next takes its place.
    session().hold(Qt::Key_Delete);
    QCOMPARE(store().all<Slideshow>().size(), 8u);
    QCOMPARE(current(), made[7]);
    session().key(Qt::Key_F10, Qt::ShiftModifier);
    QTRY_VERIFY(session().find(u"deleteSlideshow"_s));
    session().key(Qt::Key_Down);
    session().key(Qt::Key_Return);
    QCOMPARE(store().all<Slideshow>().size(), 7u);
    QTRY_COMPARE(current(), made[8]);
    session().key(Qt::Key_Return);
    QCOMPARE(gallery().selectedSlideshow(), made[8]);
    QTRY_VERIFY(session().find(u"slideList"_s));
    session().key(Qt::Key_Escape);
    QTRY_COMPARE(current(), made[8]);
}

void GalleryTest::keepsItsPlaceAndMakesOnlyWhatIsInView()
{
    for (int i = 0; i < 1000; ++i)
        add(i < 400 ? u"big"_s : u"batch %1"_s.arg(i), 1, allAspectRatios[static_cast<size_t>(i % 3)]);
    QVERIFY(openGallery());
    const auto cards = [&] { return session().count(u"slideshowCard"_s); };
    QVERIFY2(cards() > 0 && cards() < 24, qPrintable(QString::number(cards())));
    QTRY_VERIFY(area());
    const double height = area()->property("contentHeight").toDouble();
    for (const double part : {0.3, 0.7, 1.0}) {
        area()->setProperty("contentY", part * (height - area()->height()));
        settle();
        QVERIFY2(cards() > 0 && cards() < 24, qPrintable(QString::number(cards())));
    }
    // What is in view stays there when slideshows come and go above it.
    area()->setProperty("contentY", 0.9 * height);
    settle();
    QTRY_VERIFY(session().find(u"slideshowCard"_s, 4));
    QQuickItem *const card = session().find(u"slideshowCard"_s, 4);
    Slideshow *const shown = shownBy(card);
    const QPointF place = card->mapToScene({});
    add(u"brand new"_s);
    settle();
    QCOMPARE(card->mapToScene({}), place);
    store().remove(gallery().groupedSlideshows().constFirst().slideshows.constFirst());
    store().remove(gallery().groupedSlideshows().at(3).slideshows.constFirst());
    settle();
    QCOMPARE(card->mapToScene({}), place);
    QCOMPARE(shownBy(card), shown);
    session().window()->resize(1500, 900);
    settle();
    QVERIFY(card->isVisible() && shownBy(card) == shown);
    // At the top, what is new shows at once.
    area()->setProperty("contentY", 0);
    settle();
    add(u"newest"_s);
    settle();
    QCOMPARE(texts(u"batchName"_s).constFirst(), u"newest"_s);
}

QTEST_MAIN(GalleryTest)
#include "tst_gallery.moc"
