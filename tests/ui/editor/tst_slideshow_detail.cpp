// The slideshow editor around canvas and inspector: first its operations on records, then the window.

#include "tests/ui/editor/detail_session.h"

#include <QtCore/QDir>
using namespace mosslantern;

class SlideshowDetailTest : public QObject
{
    Q_OBJECT

private slots:
    void opensOnTheFirstInOrder();
    void selects();
    void losesItsSlideshow();
    void exports();
    void reportsFailedExports();
    void selectingKeepsTheDrag();
    void inputDuringAnExportIsDropped();
    void exportOutlivesItsScreen();
    void columnsKeepTheirPlaces();
    void closes_data();
    void closes();
};

void SlideshowDetailTest::opensOnTheFirstInOrder()
{
    DetailFixture f;
    f.slide(0)->setOrder(3);
    f.slide(3)->setOrder(0);
    f.slide(1)->setOrder(1);
    f.slide(0)->setStyle(&SlideStyle::boxColorHex, u"112233"_s);
    f.slide(3)->setStyle(&SlideStyle::boxColorHex, u"445566"_s);
    SlideshowDetailView detail;
    detail.setContext(&f.context);
    detail.setSlideshow(f.slideshow);
    QCOMPARE(detail.slides(), (QList<Slide *>{f.slide(3), f.slide(1), f.slide(2), f.slide(0)}));
    QCOMPARE(detail.selectedSlide(), f.slide(3));
    QCOMPARE(detail.inspector()->slide(), f.slide(3));
    QCOMPARE(detail.boxColor(), colorFromHex(u"112233"_s));
    QCOMPARE(f.slide(3)->style().boxColorHex, u"445566"_s);

    for (Slide *slide : f.slideshow->slides())
        slide->setOrder(0);
    SlideshowDetailView repairing;
    repairing.setContext(&f.context);
    repairing.setSlideshow(f.slideshow);
    QCOMPARE(f.slide(2)->order(), 2);
}

void SlideshowDetailTest::selects()
{
    DetailFixture f;
    f.slide(2)->setStyle(&SlideStyle::boxColorHex, u"8A4BC6"_s);
    QSignalSpy selections(&f.detail, &SlideshowDetailView::selectedSlideChanged);
    f.detail.select(2);
    QCOMPARE(f.detail.selectedSlideIndex(), 2);
    QCOMPARE(f.detail.boxColor(), colorFromHex(u"8A4BC6"_s));
    f.detail.select(4);
    f.detail.select(-1);
    QCOMPARE(f.detail.selectedSlideIndex(), 2);
    QCOMPARE(selections.count(), 1);
}

void SlideshowDetailTest::losesItsSlideshow()
{
    DetailFixture f;
    f.store().remove(f.slideshow);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(f.detail.slides().isEmpty());
    QVERIFY(!f.detail.selectedSlide());
    QVERIFY(!f.inspector().slide());
    f.inspector().setText(u"nowhere"_s);
    f.inspector().applyToAllSlides();
    f.inspector().savePreset();
    QCOMPARE(f.inspector().presets().count(), 0);
}

void SlideshowDetailTest::exports()
{
    DetailFixture f;
    f.slide(0)->setOrder(9);
    f.detail.setClock([] { return QDateTime({2025, 3, 3}, {14, 5, 9}); });
    f.detail.exportSlideshow();
    QCOMPARE(f.panels.folderRequest().suggestedName, u"Slideshow_2025-03-03_14-05-09"_s);
    f.panels.answerFolder({});
    QVERIFY(f.panels.openedFolders().isEmpty());

    f.detail.exportSlideshow();
    QSignalSpy progress(f.detail.exportRun(), &ExportRun::progressed);
    const QString folder = f.library().path(u"out/deep"_s);
    f.panels.answerFolder(folder);
    QVERIFY(f.context.work().isExporting());
    QTRY_COMPARE(f.panels.openedFolders(), QStringList{folder});
    QTRY_VERIFY(!f.context.work().isExporting());
    QCOMPARE(QDir(folder).entryList(QDir::Files).size(), 4);
    QCOMPARE(QImage(folder + u"/Slide_1.png"_s).size(), QSize(240, 240));
    QCOMPARE(progress.count(), 6);
    QVERIFY(!f.detail.exportRun()->isRunning() && !f.detail.exportRun()->isTellingOutcome());
}

void SlideshowDetailTest::reportsFailedExports()
{
    DetailFixture f;
    f.detail.exportSlideshow();
    const ConsoleCapture console;
    f.panels.answerFolder(f.addPicture(u"in the way.png"_s, {4, 4}) + u"/folder"_s);
    QCOMPARE(console.lines().size(), 1);
    QVERIFY(console.lines().constFirst().startsWith(u"Failed to export: "_s));
    QVERIFY(f.panels.openedFolders().isEmpty());
}

void SlideshowDetailTest::selectingKeepsTheDrag()
{
    ScreenSession s;
    QPointer<DraggableTextView> block = s.block();
    block->drag({10, 0});
    block->endDrag();
    const double x = block->position().x();
    QVERIFY(x > 0.5);
    QVERIFY(s.click(u"slideEntry2"_s));
    QCOMPARE(s.slide(0)->style().textX, x);
    QVERIFY(!block);
    QCOMPARE(s.block()->text(), u"Three"_s);
    QCOMPARE(s.block()->position(), QPointF(0.5, 0.5));
    for (const auto &[key, text] : {std::pair(Qt::Key_Up, u"Two"_s), std::pair(Qt::Key_Home, u"One"_s),
                                    std::pair(Qt::Key_End, u"Three"_s)}) {
        QTest::keyClick(&s.window(), key);
        QTRY_COMPARE(s.block()->text(), text);
    }
}

void SlideshowDetailTest::inputDuringAnExportIsDropped()
{
    ScreenSession s;
    QSignalSpy dismissed(s.root, SIGNAL(dismissed()));
    ExportRun *const run = s.detail()->exportRun();
    const QPointF done = s.find(u"done"_s)->mapToScene({10, 10});
    connect(run, &ExportRun::progressed, this, [&] {
        if (!run->isRunning() || run->written() != 1)
            return;
        for (const auto &[type, buttons] : {std::pair(QEvent::MouseButtonPress, Qt::LeftButton),
                                            std::pair(QEvent::MouseButtonRelease, Qt::NoButton)})
            QCoreApplication::postEvent(&s.window(),
                                        new QMouseEvent(type, done, s.window().mapToGlobal(done),
                                                        Qt::LeftButton, buttons, Qt::NoModifier));
    });
    QVERIFY(s.click(u"export"_s));
    s.panels.answerFolder(s.library().path(u"out"_s));
    QVERIFY(run->isRunning());
    QTRY_VERIFY(!run->isRunning());
    s.settle();
    QCOMPARE(dismissed.count(), 0);
    QVERIFY(s.click(u"done"_s));
    QCOMPARE(dismissed.count(), 1);
}

void SlideshowDetailTest::exportOutlivesItsScreen()
{
    ScreenSession s;
    bool isUnderWay = false;
    connect(s.detail()->exportRun(), &ExportRun::progressed, &s.window(), [&] {
        if (s.detail()->exportRun()->written() != 1)
            return;
        const auto leave = [&] {
            s.close();
            s.store().remove(s.slideshow);
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            isUnderWay = s.panels.openedFolders().isEmpty();
        };
        QMetaObject::invokeMethod(this, leave, Qt::QueuedConnection);
    });
    QVERIFY(s.click(u"export"_s));
    const QString folder = s.library().path(u"out"_s);
    s.panels.answerFolder(folder);
    QTRY_COMPARE(s.panels.openedFolders(), QStringList{folder});
    QVERIFY(isUnderWay);
    QCOMPARE(QDir(folder).entryList(QDir::Files).size(), 3);
}

void SlideshowDetailTest::columnsKeepTheirPlaces()
{
    ScreenSession s;
    const QQuickItem *const column = s.find(u"slideColumn"_s);
    for (const int target : {20, 600}) {
        const QPoint handle(static_cast<int>(column->width()), 400);
        QTest::mousePress(&s.window(), Qt::LeftButton, {}, handle);
        QTest::mouseMove(&s.window(), {(handle.x() + target) / 2, 400});
        QTest::mouseMove(&s.window(), {target, 400});
        QTest::mouseRelease(&s.window(), Qt::LeftButton, {}, {target, 400});
        s.settle();
        QCOMPARE(column->width(), target < 150 ? 150.0 : 200.0);
    }
    s.window().resize(1200, 360);
    QVERIFY(s.click(u"slideEntry0"_s));
    for (int i = 0; i < 2; ++i)
        QTest::keyClick(&s.window(), Qt::Key_Down);
    // The chosen entry grows around its middle; its place does not.
    const QQuickItem *const entry = s.find(u"slideEntry2"_s);
    const QPointF below(0, entry->y() + entry->height() + 16);
    QTRY_COMPARE(entry->scale(), 1.02);
    QCOMPARE(entry->parentItem()->mapToScene(below).y(), 360.0);
    s.store().remove(s.slideshow);
    s.settle();
    QVERIFY(!s.find(u"inspectorColumn"_s));
    QVERIFY(!s.find(u"canvasContent"_s));
}

void SlideshowDetailTest::closes_data()
{
    QTest::addColumn<QString>("button");
    QTest::newRow("Done") << u"done"_s;
    QTest::newRow("close button") << u"close"_s;
    QTest::newRow("Escape") << QString();
}

void SlideshowDetailTest::closes()
{
    QFETCH(QString, button);
    ScreenSession s;
    QSignalSpy dismissed(s.root, SIGNAL(dismissed()));
    if (button.isEmpty()) {
        QVERIFY(s.click(u"slideEntry0"_s));
        QTest::keyClick(&s.window(), Qt::Key_Escape);
    } else {
        QVERIFY(s.click(button));
    }
    QCOMPARE(dismissed.count(), 1);
    Slide *const slide = s.slide(0);
    s.block()->type(u"Changed"_s);
    s.block()->drag({30, 40});
    delete s.root;
    QCOMPARE(slide->text(), u"Changed"_s);
}

int main(int argc, char **argv)
{
    return runEditorTest<SlideshowDetailTest>(argc, argv);
}

#include "tst_slideshow_detail.moc"
