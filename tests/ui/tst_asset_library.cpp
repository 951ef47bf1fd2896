#include "model/collection.h"
#include "tests/ui/window_test.h"
#include "ui/common/thumbnail.h"

#include <QtCore/QMimeData>
#include <QtGui/QDropEvent>

using namespace mosslantern;
using namespace Qt::StringLiterals;

class AssetLibraryTest : public WindowTest
{
    Q_OBJECT

private:
    QStringList assetNames()
    {
        QStringList names;
        for (const Asset *asset : store().all<Asset>())
            names.append(asset->name());
        return names;
    }

    QUrl textFile(const QString &name)
    {
        const QUrl file = pictureFile(name);
        writeFile(file.toLocalFile(), "no picture");
        return file;
    }

    void drop(const QList<QUrl> &urls)
    {
        QMimeData data;
        data.setUrls(urls);
        const QPoint middle(700, 400);
        QDragEnterEvent enter(middle, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(session().window(), &enter);
        QDropEvent released(middle, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(session().window(), &released);
        settle();
    }

private slots:
    void importsWhatIsPicked()
    {
        session().open();
        QCOMPARE(session().count(u"assetCell"_s), 0);
        QCOMPARE(session().count(u"addTile"_s), 1);

        QVERIFY(session().click(u"addTile"_s));
        QVERIFY(session().panels().isShown());
        session().panels().answer(QList<QUrl>());
        settle();
        QCOMPARE(assetNames(), QStringList());

        // Neither a file that is gone nor what cannot be shown keeps the others from being imported.
        const QUrl half = pictureFile(u"half.png"_s);
        QVERIFY(QFile::resize(half.toLocalFile(), QFileInfo(half.toLocalFile()).size() / 2));
        const QList<QUrl> picked{pictureFile(u"b.png"_s), QUrl::fromLocalFile(u"/nowhere/gone.png"_s),
                                 textFile(u"text.png"_s), half, pictureFile(u"a.PNG"_s)};
        QVERIFY(session().click(u"addTile"_s));
        const ConsoleCapture console;
        session().panels().answer(picked);
        QTRY_COMPARE(assetNames(), QStringList({u"b.png"_s, u"a.PNG"_s}));
        QTRY_COMPARE(session().count(u"assetCell"_s), 2);
        QCOMPARE(console.lines().size(), 3);
        for (const QString &line : console.lines())
            QVERIFY2(line.startsWith("Failed to copy asset: "_L1), qPrintable(line));
    }

    void reportsAPanelThatFails()
    {
        session().open();
        QVERIFY(session().click(u"addTile"_s));
        const ConsoleCapture console;
        session().panels().answer(fail(u"the panel broke."_s));
        QCOMPARE(console.lines(), QStringList(u"Error importing files: the panel broke."_s));
        QVERIFY(session().click(u"addTile"_s));
        QVERIFY(session().panels().isShown());
    }

    void takesDroppedPicturesAndFolders()
    {
        session().open();
        pictureFile(u"folder/10.png"_s);
        const QUrl inFolder = pictureFile(u"folder/9.png"_s);
        const QUrl folder = QUrl::fromLocalFile(QFileInfo(inFolder.toLocalFile()).path());
        const QUrl broken = textFile(u"folder/broken.jpg"_s), notes = textFile(u"folder/notes.txt"_s);

        const ConsoleCapture console;
        drop({pictureFile(u"single.png"_s), notes, folder, inFolder});
        QTRY_COMPARE(assetNames(), QStringList({u"single.png"_s, u"10.png"_s, u"9.png"_s}));
        QCOMPARE(console.lines().size(), 1);
        QVERIFY(console.lines().constFirst().contains(broken.toLocalFile()));
    }

    void importsWhileTheUserIsElsewhere()
    {
        session().open();
        QVERIFY(session().click(u"addTile"_s));
        QList<QUrl> picked;
        for (int i = 0; i < 30; ++i)
            picked.append(pictureFile(QString::number(i) + u".png"_s));
        session().panels().answer(picked);
        QVERIFY(session().click(u"sidebarRow1"_s));
        QTRY_COMPARE(assetNames().size(), 30);
    }

    void deletesWithWhatDepends()
    {
        Asset *const used = session().library().addAsset(u"used"_s);
        session().library().addAsset(u"other"_s);
        Collection *const collection = store().insert(std::make_unique<Collection>(u"kept"_s));
        used->setCollection(collection);
        const Slideshow *const dependent = session().library().addSlideshow(used, {u"one"_s, u"two"_s});
        const QString id = dependent->id().toString(QUuid::WithoutBraces).toUpper();
        session().open();

        const ConsoleCapture console;
        QVERIFY(session().click(u"assetCell"_s, 0, Qt::RightButton));
        QVERIFY(session().click(u"deleteAsset"_s));
        QCOMPARE(assetNames(), QStringList(u"other"_s));
        QCOMPARE(console.lines(), QStringList(u"Deleting dependent slideshow: "_s + id));
        QVERIFY(store().all<Slideshow>().empty());
        QCOMPARE(collection->assetCount(), 0);
        QTRY_COMPARE(session().count(u"assetCell"_s), 1);
    }

    void worksByKeyboard()
    {
        for (const QString &name : {u"1"_s, u"2"_s, u"3"_s})
            session().library().addAsset(name);
        session().open();
        session().key(Qt::Key_Tab);
        session().key(Qt::Key_Right);
        session().key(Qt::Key_Delete);
        QCOMPARE(assetNames(), QStringList({u"1"_s, u"3"_s}));
        session().key(Qt::Key_F10, Qt::ShiftModifier);
        QVERIFY(session().find(u"deleteAsset"_s));
        session().key(Qt::Key_Escape);
        session().hold(Qt::Key_Delete);
        QCOMPARE(assetNames(), QStringList(u"1"_s));
        session().key(Qt::Key_End);
        session().key(Qt::Key_Return);
        QVERIFY(session().panels().isShown());
        session().key(Qt::Key_Home);
        session().key(Qt::Key_Backspace);
        QCOMPARE(assetNames(), QStringList());
    }

    /// Cells lie beneath header and menu bar, too, and the current one may be out of sight.
    void leavesWhatCannotBeSeenAlone()
    {
        for (int i = 0; i < 60; ++i)
            session().library().addAsset(QString::number(i));
        session().open();
        QVERIFY(session().click(u"assetCell"_s, 1));
        QQuickItem *const grid = session().find(u"assetGrid"_s);
        grid->setProperty("contentY", 100);
        settle();
        const QPoint cell = grid->mapToScene({}).toPoint() + QPoint(450, 0);
        for (const int above : {10, 40, 70}) {
            for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton})
                QTest::mouseClick(session().window(), button, {}, cell - QPoint(0, above));
        }
        settle();
        QVERIFY(!session().find(u"deleteAsset"_s));
        QCOMPARE(grid->property("currentIndex"), 1);
        QCOMPARE(grid->property("contentY"), 100);

        session().key(Qt::Key_Delete);
        QCOMPARE(store().all<Asset>().size(), 60);
        QVERIFY(grid->property("contentY").toDouble() < 20);
        session().key(Qt::Key_Delete);
        QCOMPARE(assetNames().value(1), u"2"_s);
    }

    void marksTheFrameOfTheCurrentCell()
    {
        for (int i = 0; i < 60; ++i)
            session().library().addAsset(QString::number(i));
        session().open();
        session().key(Qt::Key_Tab);
        QQuickItem *const grid = session().find(u"assetGrid"_s);
        const auto place = [](const QQuickItem &item) { return item.mapRectToScene(item.boundingRect()); };
        for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Down, Qt::Key_End, Qt::Key_Up, Qt::Key_Left,
                                  Qt::Key_PageUp, Qt::Key_PageUp, Qt::Key_Up}) {
            session().key(key);
            // It scrolls with the next step of an animation that takes no time.
            const bool isAtTop = key == Qt::Key_Right || key == Qt::Key_Down;
            QTRY_COMPARE(grid->property("contentY").toDouble() <= 0, isAtTop);
            QQuickItem *const cell = grid->property("currentItem").value<QQuickItem *>();
            QQuickItem *const ring = session().find(u"gridRing"_s);
            QVERIFY(cell && ring);
            QCOMPARE(place(*ring), place(*cell->findChild<Thumbnail *>()).adjusted(-3, -3, 3, 3));
            QTRY_VERIFY(place(*grid).contains(place(*ring)));
        }
    }

    void laysOutAdaptiveColumns_data()
    {
        QTest::addColumn<int>("width");
        QTest::addColumn<int>("columns");
        // The grid has the window less sidebar (200), handle (1) and padding (2 · 16).
        QTest::newRow("smallest window") << 1200 << 5;
        QTest::newRow("just too narrow for six") << 1232 << 5;
        QTest::newRow("just wide enough for six") << 1233 << 6;
        QTest::newRow("wide") << 1900 << 9;
    }
    void laysOutAdaptiveColumns()
    {
        QFETCH(const int, width);
        QFETCH(const int, columns);
        for (int i = 0; i < 12; ++i)
            session().library().addAsset(QString::number(i));
        session().open();
        session().window()->resize(width, 800);
        settle();
        const auto x = [this](int n) { return session().find(u"assetCell"_s, n)->mapToScene({}).x(); };
        const auto y = [this](int n) { return session().find(u"assetCell"_s, n)->mapToScene({}).y(); };
        QTRY_COMPARE(y(columns - 1), y(0));
        QVERIFY(y(columns) > y(0));
        const double column = x(1) - x(0) - 20;
        QVERIFY2(column >= 150 && column <= 200, qPrintable(QString::number(column)));
    }

    void makesOnlyTheCellsThatShow()
    {
        for (int i = 0; i < 5000; ++i)
            session().library().addAsset(QString::number(i));
        session().open();
        QVERIFY(session().count(u"assetCell"_s) < 60);
        QQuickItem *const grid = session().find(u"assetGrid"_s);
        for (const double y : {20'000., 60'000., 0.}) {
            grid->setProperty("contentY", y);
            settle();
        }
        QVERIFY(grid->property("contentItem").value<QQuickItem *>()->childItems().size() < 150);
    }
};

QTEST_MAIN(AssetLibraryTest)
#include "tst_asset_library.moc"
