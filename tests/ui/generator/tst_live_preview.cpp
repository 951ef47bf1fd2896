#include "tests/ui/generator/generator_test.h"
#include "ui/slide/asset_background.h"

using namespace mosslantern;
using namespace Qt::StringLiterals;

namespace {

QString document(const QStringList &mainTexts)
{
    QStringList entries;
    for (const QString &text : mainTexts)
        entries.append(u"{\"main\":\"%1\",\"subtitle\":\"sub\"}"_s.arg(text));
    return u"{\"slides\":["_s + entries.join(u',') + u"]}"_s;
}

} // namespace

class LivePreviewTest : public GeneratorTest
{
    Q_OBJECT

private:
    void doubleClick(const QString &objectName)
    {
        const QQuickItem *const item = session().find(objectName);
        const QPoint at = item->mapToScene(QPointF(item->width(), item->height()) / 2).toPoint();
        QTest::mouseDClick(session().window(), Qt::LeftButton, {}, at);
        QTRY_VERIFY(session().find(u"textEdit"_s));
        QTRY_VERIFY(session().find(u"textEdit"_s)->hasActiveFocus());
    }

private slots:
    void stepsThroughEntries()
    {
        openScreen(1);
        QVERIFY(!isShown(u"previewNavigation"_s));
        generator().setTextInput(document({u"A"_s, u"B"_s}));
        settle();
        QCOMPARE(text(u"entryCounter"_s), u"1 / 2"_s);
        QVERIFY(!isEnabled(u"previousEntry"_s));
        QVERIFY(session().click(u"nextEntry"_s));
        QCOMPARE(text(u"entryCounter"_s), u"2 / 2"_s);
        QVERIFY(!isEnabled(u"nextEntry"_s));
        QCOMPARE(preview().mainBlock()->text(), u"B"_s);

        generator().setTextInput(document({u"A"_s, u"B"_s, u"C"_s, u"D"_s}));
        settle();
        QVERIFY(session().click(u"stripEntry3"_s));
        QCOMPARE(preview().mainBlock()->text(), u"D"_s);
        QVERIFY(property(u"stripEntry3"_s, "isCurrent").toBool());
        session().key(Qt::Key_Down);
        session().key(Qt::Key_Up);
        QCOMPARE(generator().currentPreviewIndex(), 2);
        for (const auto &[key, index] : {std::pair(Qt::Key_Home, 0), std::pair(Qt::Key_PageDown, 3),
                                         std::pair(Qt::Key_PageUp, 0), std::pair(Qt::Key_End, 3)}) {
            session().key(key);
            QCOMPARE(generator().currentPreviewIndex(), index);
        }
        generator().setTextInput(document({u"A"_s}));
        settle();
        QCOMPARE(generator().currentPreviewIndex(), 0);
        QVERIFY(!isShown(u"previewNavigation"_s) && !isShown(u"stripEntry1"_s));
        QCOMPARE(preview().mainBlock()->text(), u"A"_s);
    }

    void fitsItsArea_data()
    {
        QTest::addColumn<AspectRatio>("shape");
        QTest::addColumn<QSizeF>("area");
        QTest::addColumn<QSizeF>("size");
        QTest::newRow("as high as there is room")
            << AspectRatio::tiktok << QSizeF(1000, 700) << QSizeF(360, 640);
        QTest::newRow("as wide") << AspectRatio::square << QSizeF(500, 900) << QSizeF(440, 440);
        QTest::newRow("4:5") << AspectRatio::instagram << QSizeF(460, 1000) << QSizeF(400, 500);
        QTest::newRow("no room") << AspectRatio::square << QSizeF(60, 900) << QSizeF();
    }
    void fitsItsArea()
    {
        QFETCH(const AspectRatio, shape);
        QFETCH(const QSizeF, area);
        openScreen(0);
        generator().setSelectedAspectRatio(shape);
        preview().setArea(area);
        QTEST(preview().frame().isEmpty() ? QSizeF() : preview().frame().size(), "size");
        if (!preview().frame().isEmpty())
            QCOMPARE(preview().frame().center(), QRectF(QPointF(), area).center());
    }

    void showsAssets()
    {
        store().insert(std::make_unique<Asset>(u"gone"_s, u"gone"_s, nullptr));
        openScreen(0);
        QCOMPARE(session().find(u"livePicture"_s)->property("asset").value<Asset *>(),
                 store().all<Asset>().at(0));
        store().remove(store().all<Asset>().at(0));
        settle();
        QVERIFY(!session().find(u"livePicture"_s)->property("asset").value<Asset *>());
        const QImage image = session().grab();
        const QPointF corner = session().find(u"livePreview"_s)->mapToScene({20, 20});
        QCOMPARE(image.pixelColor(corner.toPoint() * image.devicePixelRatio()).name(), u"#2c2f30"_s);
    }

    void movesNewSlidesTexts()
    {
        openScreen(1);
        const QQuickItem *const block = session().find(u"liveMainText"_s);
        const QPoint start = block->mapToScene(QPointF(block->width(), block->height()) / 2).toPoint();
        QTest::mousePress(session().window(), Qt::LeftButton, {}, start);
        for (const int step : {6, 12, 40, 60})
            QTest::mouseMove(session().window(), start + QPoint(step, -step));
        QTest::mouseRelease(session().window(), Qt::LeftButton, {}, start + QPoint(60, -60));
        const QPointF moved = generator().templateTextPos();
        const QSizeF canvas = preview().frame().size();
        QVERIFY(QLineF(moved, {0.5 + 60 / canvas.width(), 0.5 - 60 / canvas.height()}).length() < 0.01);
        preview().subtitleBlock()->magnify(2);
        preview().subtitleBlock()->endMagnify();
        generator().setTemplateTextScale(1.5);
        QCOMPARE(preview().mainBlock()->scale(), 1.5);

        ConsoleCapture quiet;
        QVERIFY(clickInPanel(u"generate"_s));
        QTRY_COMPARE(store().all<Slideshow>().size(), 1u);
        const Slide *const slide = store().all<Slideshow>()[0]->slides().first();
        QCOMPARE(QPointF(slide->style().textX, slide->style().textY), moved);
        QCOMPARE(slide->style().textScale, 1.5);
        QCOMPARE(slide->style().subtitleScale, 2.0);
    }

    void retypesTexts()
    {
        openScreen(0);
        generator().setTextInput(document({u"A"_s, u"B"_s}));
        preview().setIndex(1);
        doubleClick(u"liveMainText"_s);
        session().key(Qt::Key_End);
        session().type(u"\""_s);
        session().key(Qt::Key_Return);
        session().type(u"z"_s);
        QCOMPARE(*generator().previewEntries().entry(1), (SlideText{u"B\"\nz"_s, u"sub"_s}));
        QCOMPARE(generator().previewEntries().entry(0)->main, u"A"_s);
        QVERIFY(view().panel()->isValid());

        // A click beside the texts ends it.
        const QQuickItem *const canvas = session().find(u"livePreview"_s);
        QTest::mouseClick(session().window(), Qt::LeftButton, {}, canvas->mapToScene({30, 30}).toPoint());
        QTRY_VERIFY(!preview().mainBlock()->isFocused());

        doubleClick(u"liveSubtitle"_s);
        session().key(Qt::Key_A, Qt::ControlModifier);
        session().key(Qt::Key_Delete);
        QVERIFY(generator().textInput().contains(u"\"subtitle\": \"\""_s));
        QVERIFY(!isShown(u"liveSubtitle"_s) && !isShown(u"textEdit"_s));
    }

    void keepsWhatCannotBeRetyped_data()
    {
        QTest::addColumn<QString>("content");
        QTest::addColumn<QString>("shown");
        QTest::newRow("plain text") << u"Hook\nPayoff"_s << u"Hook"_s;
        QTest::newRow("no entries") << u"{\"slides\":[]}"_s << u"Main Text"_s;
        QTest::newRow("nothing") << u""_s << u"Main Text"_s;
    }
    void keepsWhatCannotBeRetyped()
    {
        QFETCH(const QString, content);
        QFETCH(const QString, shown);
        openScreen(1);
        generator().setTextInput(content);
        doubleClick(u"liveMainText"_s);
        session().type(u"x"_s);
        QCOMPARE(generator().textInput(), content);
        QTRY_COMPARE(preview().mainBlock()->text(), shown);
        QTRY_COMPARE(text(u"textEdit"_s), shown);
    }

    void touchesOnlyWhatChanges()
    {
        openScreen(1);
        generator().setTextInput(document({u"A"_s, u"B"_s, u"C"_s}));
        QAbstractItemModel &entries = *preview().entries();
        QAbstractItemModelTester tester(&entries, QAbstractItemModelTester::FailureReportingMode::QtTest);
        const QSignalSpy changed(&entries, &QAbstractItemModel::dataChanged);
        const QSignalSpy inserted(&entries, &QAbstractItemModel::rowsInserted);
        const QSignalSpy removed(&entries, &QAbstractItemModel::rowsRemoved);
        generator().setTextInput(document({u"A"_s, u"B+"_s, u"C"_s, u"D"_s}));
        QCOMPARE(changed.size(), 1);
        QCOMPARE(changed[0][0].toModelIndex().row(), 1);
        QCOMPARE(inserted.size(), 1);
        generator().setTextInput(document({u"A"_s}));
        QCOMPARE(changed.size(), 1);
        QCOMPARE(removed.size(), 1);
        QCOMPARE(entries.rowCount(), 1);
    }
};

QTEST_MAIN(LivePreviewTest)
#include "tst_live_preview.moc"
