#include "model/collection.h"
#include "model/content_template.h"
#include "model/slide_preset.h"
#include "tests/model/test_library.h"
#include "tests/table.h"

#include <QtTest/QSignalSpy>

#include <limits>

using namespace mosslantern;
using namespace Qt::StringLiterals;

class RecordsTest : public QObject
{
    Q_OBJECT

private slots:
    void enumerations()
    {
        QStringList styles, shapes;
        for (const TextStyle style : allTextStyles) {
            styles << rawText(style);
            QCOMPARE(textStyleFromRawText(rawText(style)), style);
        }
        for (const AspectRatio ratio : allAspectRatios) {
            shapes << u"%1 %2 %3"_s.arg(rawText(ratio), displayName(ratio)).arg(widthToHeight(ratio));
            QCOMPARE(aspectRatioFromRawText(rawText(ratio)), ratio);
        }
        QCOMPARE(styles, (QStringList{u"classic"_s, u"boxed"_s, u"modern"_s, u"neon"_s}));
        QCOMPARE(shapes, (QStringList{u"9:16 TikTok (9:16) 0.5625"_s, u"4:5 Instagram (4:5) 0.8"_s,
                                      u"1:1 Square (1:1) 1"_s}));

        for (const auto &text : {u""_s, u"Classic"_s, u"classic "_s, u"9:16"_s})
            QVERIFY(!textStyleFromRawText(text));
        for (const auto &text : {u""_s, u"tiktok"_s, u"9 : 16"_s, u"1:1 "_s})
            QVERIFY(!aspectRatioFromRawText(text));
    }

    void newSlideHasDefaults()
    {
        TestLibrary library;
        const ConsoleCapture console;
        const Slide slide(library.addAsset(u"a"_s), u"text"_s, u"sub"_s, TextStyle::neon, 3);
        QVERIFY(!slide.id().isNull());
        QCOMPARE(slide.style(), (SlideStyle{0.5, 0.5, 0.5, 0.8, 1, 1, TextStyle::neon, u"FFFFFF"_s}));
        QCOMPARE(slide.text(), u"text"_s);
        QCOMPARE(slide.subtitle(), u"sub"_s);
        QCOMPARE(slide.order(), 3);
        QVERIFY(!slide.imageFilename());
        QCOMPARE(slide.imageURL(), slide.asset()->fileURL());
    }

    void constructorsStampTheTime()
    {
        const QDateTime before = QDateTime::currentDateTimeUtc();
        const Collection collection(u"c"_s);
        const ContentTemplate contentTemplate(u"t"_s, u"{}"_s);
        const Slideshow slideshow({}, std::nullopt, {}, std::nullopt);
        const QDateTime after = QDateTime::currentDateTimeUtc();
        for (const QDateTime &time :
             {collection.createdAt(), contentTemplate.createdAt(), slideshow.createdAt()})
            QVERIFY(before <= time && time <= after);
        QVERIFY(collection.id() != contentTemplate.id());
    }

    void presetCopiesTheStyleAndNothingElse()
    {
        TestLibrary library;
        Asset *const asset = library.addAsset(u"a"_s);
        const Slideshow *const slideshow = library.addSlideshow(asset, {u"one"_s, u"two"_s});
        Slide *const from = slideshow->slides()[0];
        Slide *const to = slideshow->slides()[1];
        from->setStyle(&SlideStyle::textX, 0.1);
        from->setStyle(&SlideStyle::textY, 0.2);
        from->setStyle(&SlideStyle::subtitleX, 0.3);
        from->setStyle(&SlideStyle::subtitleY, 0.4);
        from->setStyle(&SlideStyle::textScale, 2);
        from->setStyle(&SlideStyle::subtitleScale, 3);
        from->setStyle(&SlideStyle::textStyle, TextStyle::boxed);
        from->setStyle(&SlideStyle::boxColorHex, u"11223344"_s);
        to->setSubtitle(u"kept"_s);

        const std::unique_ptr<SlidePreset> saved = presetFromSlide(u"name"_s, *from);
        QCOMPARE(saved->name(), u"name"_s);
        QCOMPARE(saved->style(), from->style());
        const QSignalSpy changed(to, &Record::changed);
        to->applyPreset(*saved);
        QCOMPARE(to->style(), from->style());
        QCOMPARE(changed.count(), 1);
        QCOMPARE(to->text(), u"two"_s);
        QCOMPARE(to->subtitle(), u"kept"_s);
        QCOMPARE(to->order(), 1);
        to->applyPreset(*saved);
        to->setStyle(&SlideStyle::textScale, std::numeric_limits<double>::quiet_NaN());
        QCOMPARE(to->style(), from->style());
        QCOMPARE(changed.count(), 1);
    }

    void orderOfSlides_data()
    {
        const auto row = table<QList<int>, QString, QList<int>>({"orders", "inOrder", "repaired"});
        row("none", {}, u""_s, {});
        row("all 0", {0, 0, 0}, u"012"_s, {0, 1, 2});
        row("some 0", {5, 0, 2, 0}, u"1320"_s, {5, 0, 2, 1});
        row("negative first", {0, -3, 0}, u"102"_s, {1, -3, 2});
        row("two negative", {-1, -2}, u"10"_s, {-1, -2});
        row("equal, not 0", {4, 4, 1}, u"201"_s, {4, 4, 1});
    }

    void orderOfSlides()
    {
        QFETCH(QList<int>, orders);
        TestLibrary library;
        QStringList texts;
        for (qsizetype i = 0; i < orders.size(); ++i)
            texts << QString::number(i);
        Slideshow *const slideshow = library.addSlideshow(library.addAsset(u"a"_s), texts);
        for (qsizetype i = 0; i < orders.size(); ++i)
            slideshow->slides()[i]->setOrder(orders[i]);
        QTEST(textsOf(slideshow->slidesInOrder(), &Slide::text).join(QString()), "inOrder");
        slideshow->repairSlideOrder();
        QList<int> repaired;
        for (const Slide *slide : slideshow->slides())
            repaired << static_cast<int>(slide->order());
        QTEST(repaired, "repaired");
    }

    void bothSidesOfARelationAgree()
    {
        TestLibrary library;
        auto *const first = library.addCollection(u"first"_s);
        auto *const second = library.addCollection(u"second"_s);
        Asset *const a = library.addAsset(u"a"_s, first);
        Asset *const b = library.addAsset(u"b"_s, first);
        Asset *const c = library.addAsset(u"c"_s);
        Slideshow *const slideshow = library.addSlideshow(a, {});
        const QSignalSpy firstChanged(first, &Collection::assetsChanged);
        const QSignalSpy secondChanged(second, &Collection::assetsChanged);
        a->setCollection(second);
        slideshow->setCollection(second);
        QCOMPARE(first->assets(), QList{b});
        QCOMPARE(second->assets(), QList{a});
        QCOMPARE(second->slideshows(), QList{slideshow});
        QCOMPARE(firstChanged.count(), 1);
        QCOMPARE(secondChanged.count(), 1);
        c->setCollection(second);
        b->setCollection(second);
        QCOMPARE(second->assets(), (QList{a, b, c})); // the store's order, which a restart brings back
        b->setCollection(nullptr);
        QCOMPARE(second->assets(), (QList{a, c}));
    }

    /// Records that no store has yet may come and go in any order.
    void uninsertedRecordsUntieThemselves()
    {
        TestLibrary library;
        auto collection = std::make_unique<Collection>(u"c"_s);
        Asset *const stored = library.addAsset(u"stored"_s, collection.get());
        auto loose = std::make_unique<Asset>(u"f"_s, u"loose"_s, collection.get());
        auto later = std::make_unique<Asset>(u"f"_s, u"later"_s, collection.get());
        QCOMPARE(collection->assets(), (QList{stored, loose.get(), later.get()}));
        Asset *const inserted = library.store().insert(std::move(later));
        QCOMPARE(collection->assets(), (QList{stored, inserted, loose.get()}));
        loose.reset();
        QCOMPARE(collection->assets(), (QList{stored, inserted}));
        const auto makeSlideshow = [&] {
            std::vector<std::unique_ptr<Slide>> none;
            auto slideshow =
                std::make_unique<Slideshow>(std::move(none), std::nullopt, QUuid(), std::nullopt);
            slideshow->setCollection(collection.get());
            return slideshow;
        };
        auto looseSlideshow = makeSlideshow();
        Slideshow *const insertedSlideshow = library.store().insert(makeSlideshow());
        QCOMPARE(collection->slideshows(), (QList{insertedSlideshow, looseSlideshow.get()}));
        looseSlideshow.reset();
        collection.reset();
        QCOMPARE(stored->collection(), nullptr);

        const ConsoleCapture console;
        auto slide = std::make_unique<Slide>(stored, u""_s, u""_s, TextStyle::classic, 0);
        library.store().remove(stored);
        QCOMPARE(slide->asset(), nullptr);
        Slide outliving(inserted, u""_s, u""_s, TextStyle::classic, 0);
        library.close();
        QCOMPARE(outliving.asset(), nullptr);
    }

    void removingACollectionKeepsItsMembers()
    {
        TestLibrary library;
        auto *const collection = library.addCollection(u"c"_s);
        Asset *const asset = library.addAsset(u"a"_s, collection);
        Slideshow *const slideshow = library.addSlideshow(asset, {u"x"_s});
        slideshow->setCollection(collection);
        const QPointer<Collection> watched(collection);
        const QSignalSpy assetChanged(asset, &Asset::collectionChanged);
        const QSignalSpy removed(collection, &Record::removed);

        library.store().remove(collection);
        QCOMPARE(removed.count(), 1);
        QCOMPARE(assetChanged.count(), 1);
        QCOMPARE(asset->collection(), nullptr);
        QCOMPARE(slideshow->collection(), nullptr);
        QVERIFY(watched && !watched->store()); // views may look at it until the turn ends
        QVERIFY(library.store().all<Collection>().empty());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!watched);

        const Store &store = library.reopen();
        QCOMPARE(store.all<Asset>()[0]->collection(), nullptr);
        QCOMPARE(store.all<Slideshow>()[0]->collection(), nullptr);
    }

    void removingAnAssetLeavesItsSlidesWithoutAsset()
    {
        TestLibrary library;
        auto *const collection = library.addCollection(u"c"_s);
        Asset *const asset = library.addAsset(u"a"_s, collection);
        const Slideshow *const slideshow = library.addSlideshow(asset, {u"x"_s, u"y"_s});
        Slide *const slide = slideshow->slides()[1];
        const QSignalSpy imageChanged(slide, &Slide::imageURLChanged);
        QVERIFY(!slide->imageURL().isEmpty());
        library.store().remove(asset);
        QCOMPARE(slide->asset(), nullptr);
        QCOMPARE(slide->imageURL(), QUrl());
        QCOMPARE(imageChanged.count(), 1);
        QVERIFY(collection->assets().isEmpty());

        const Store &store = library.reopen();
        QCOMPARE(store.all<Slide>().size(), 2U);
        QCOMPARE(store.all<Slide>()[1]->asset(), nullptr);
        QCOMPARE(store.all<Collection>()[0]->assets().size(), 0);
    }

    void removingASlideshowTakesItsSlides()
    {
        TestLibrary library;
        auto *const collection = library.addCollection(u"c"_s);
        Asset *const asset = library.addAsset(u"a"_s);
        Slideshow *const gone = library.addSlideshow(asset, {u"x"_s, u"y"_s});
        Slideshow *const kept = library.addSlideshow(asset, {u"1"_s, u"2"_s, u"3"_s});
        gone->setCollection(collection);
        library.store().remove(gone);
        QCOMPARE(gone->slides().size(), 2); // whoever still shows it in this turn
        QCOMPARE(gone->slides()[0]->store(), nullptr);
        QVERIFY(collection->slideshows().isEmpty());
        library.store().remove(asset); // while the removed slides still point to it
        QCOMPARE(gone->slides()[0]->asset(), nullptr);
        library.store().remove(kept->slides()[1]);
        QCOMPARE(kept->slides().size(), 2);

        const Store &store = library.reopen();
        QCOMPARE(store.all<Slideshow>().size(), 1U);
        QCOMPARE(textsOf(store.all<Slideshow>()[0]->slides(), &Slide::text), QStringList({u"1"_s, u"3"_s}));
        QCOMPARE(store.all<Slide>().size(), 2U);
    }
};

QTEST_GUILESS_MAIN(RecordsTest)
#include "tst_records.moc"
