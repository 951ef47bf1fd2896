#include "model/batch_groups.h"
#include "model/collection.h"
#include "model/delete_asset.h"
#include "model/image_files.h"
#include "tests/model/test_library.h"

#include <QtTest/QTest>

using namespace mosslantern;
using namespace Qt::StringLiterals;

class LibraryOperationsTest : public QObject
{
    Q_OBJECT

private slots:
    void deletingAnAssetTakesTheSlideshowsThatShowItsFile()
    {
        TestLibrary library;
        Asset *const asset = library.addAsset(u"gone.jpg"_s, library.addCollection(u"All"_s));
        Asset *const other = library.addAsset(u"other.jpg"_s);
        const Result<Asset *> whole =
            importAsset(QUrl::fromLocalFile(library.writeFile(u"whole.jpg"_s, "bytes")), library.store());
        QVERIFY(whole);

        const QUuid first = library.addSlideshow(asset, {u"a"_s, u"b"_s})->id();
        Slideshow *const unrelated = library.addSlideshow(other, {u"c"_s});
        Slideshow *const withCopies = library.addSlideshow(*whole, {u"d"_s});
        const QUuid second = library.addSlideshow(asset, {u"e"_s})->id();

        const ConsoleCapture console;
        deleteAsset(asset);
        deleteAsset(*whole);
        const QString prefix = u"Deleting dependent slideshow: "_s;
        QCOMPARE(console.lines(), QStringList({prefix + first.toString(QUuid::WithoutBraces).toUpper(),
                                               prefix + second.toString(QUuid::WithoutBraces).toUpper()}));
        QCOMPARE(library.store().all<Slideshow>(), std::vector({unrelated, withCopies}));
        QCOMPARE(library.store().all<Asset>(), std::vector{other});
        QVERIFY(library.store().all<Collection>().front()->assets().isEmpty());
        QVERIFY(QFile::exists(withCopies->slides().first()->imageURL().toLocalFile()));
    }

    void slideshowsAreGroupedByBatchNameNewestFirst()
    {
        TestLibrary library;
        const auto add = [&](const std::optional<QString> &name) {
            return library.addSlideshow(nullptr, {}, name);
        };
        Slideshow *const cats1 = add(u"Cats"_s);
        Slideshow *const nameless = add(std::nullopt);
        Slideshow *const empty = add(u""_s);
        Slideshow *const named = add(u"Uncategorized"_s);
        Slideshow *const cats2 = add(u"Cats"_s);

        const QList<BatchGroup> groups = groupedSlideshows(library.store().all<Slideshow>());
        QCOMPARE(groups.size(), 3);
        QCOMPARE(groups[0].name, u"Cats"_s);
        QCOMPARE(groups[0].slideshows, QList({cats2, cats1}));
        QCOMPARE(groups[1].name, u"Uncategorized"_s);
        QCOMPARE(groups[1].slideshows, QList({named, nameless}));
        QCOMPARE(groups[2].name, QString());
        QCOMPARE(groups[2].slideshows, QList{empty});
    }
};

QTEST_GUILESS_MAIN(LibraryOperationsTest)
#include "tst_library_operations.moc"
