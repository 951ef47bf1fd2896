#include "model/collection.h"
#include "model/content_template.h"
#include "model/image_files.h"
#include "model/slide_preset.h"
#include "tests/model/test_library.h"

#include <QtCore/QMetaProperty>
#include <QtCore/QtEndian>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

#include <limits>

using namespace mosslantern;
using namespace Qt::StringLiterals;

namespace {

/// Related records as their ids.
QVariant plain(const QVariant &value)
{
    if (const auto *const record = qobject_cast<Record *>(value.value<QObject *>()))
        return record->id();
    if (!QByteArrayView(value.typeName()).startsWith("QList<"))
        return value;
    QVariantList members;
    for (const QVariant &member : value.value<QVariantList>())
        members << plain(member);
    return members;
}

/// All properties of a record by name.
QVariantMap fields(const Record *record)
{
    QVariantMap fields;
    for (int i = 0; i < record->metaObject()->propertyCount(); ++i) {
        const QMetaProperty property = record->metaObject()->property(i);
        fields[QLatin1StringView(property.name())] = plain(property.read(record));
    }
    return fields;
}

template <typename T>
QVariantList allFields(const Store &store)
{
    QVariantList all;
    for (const T *record : store.all<T>())
        all << fields(record);
    return all;
}

QVariantMap everything(const Store &store)
{
    return {
        {u"assets"_s, allFields<Asset>(store)},         {u"collections"_s, allFields<Collection>(store)},
        {u"slideshows"_s, allFields<Slideshow>(store)}, {u"slides"_s, allFields<Slide>(store)},
        {u"presets"_s, allFields<SlidePreset>(store)},  {u"templates"_s, allFields<ContentTemplate>(store)}};
}

/// How many transactions the log beside the store's file holds. A frame of it is 24 bytes and a page; its
/// second number is not 0 when a transaction ends with it.
int savesIn(const TestLibrary &library)
{
    const QByteArray log = readFile(library.storeFile() + u"-wal"_s);
    const qsizetype pageSize = log.size() < 32 ? 0 : qFromBigEndian<int>(log.data() + 8);
    int saves = 0;
    for (qsizetype frame = 32; frame < log.size(); frame += 24 + pageSize)
        saves += qFromBigEndian<int>(log.data() + frame + 4) != 0 ? 1 : 0;
    return saves;
}

/// Lets the event loop turn until it has nothing left to do.
void finishTurn()
{
    QCoreApplication::sendPostedEvents();
}

} // namespace

class StoreTest : public QObject
{
    Q_OBJECT

private slots:
    void everyFieldSurvivesARestart()
    {
        TestLibrary library;
        Store &store = library.store();
        const QString odd = u"Grüße 😀 \u202E e\u0301\n\t"_s + QChar(0) + u"after the zero"_s;
        const Result<Asset *> imported =
            importAsset(QUrl::fromLocalFile(library.writeFile(u"Ünï 😀.PNG"_s, "picture")), store);
        QVERIFY(imported);
        auto *const collection = store.insert(std::make_unique<Collection>(odd));
        (*imported)->setCollection(collection);
        Asset *const other = library.addAsset(u""_s);

        std::vector<std::unique_ptr<Slide>> slides;
        for (Asset *asset : {*imported, *imported})
            slides.push_back(std::make_unique<Slide>(asset, odd, u""_s, TextStyle::modern, 7));
        auto *const slideshow = store.insert(std::make_unique<Slideshow>(
            std::move(slides), AspectRatio::instagram, QUuid::createUuid(), u""_s));
        slideshow->setCollection(collection);
        Slide *const slide = slideshow->slides()[0];
        slide->setStyle(&SlideStyle::textX, std::numeric_limits<double>::max());
        slide->setStyle(&SlideStyle::textY, -std::numeric_limits<double>::denorm_min());
        slide->setStyle(&SlideStyle::subtitleX, 1.0 / 3.0);
        slide->setStyle(&SlideStyle::subtitleY, -1e300);
        slide->setStyle(&SlideStyle::textScale, 0.1 + 0.2);
        slide->setStyle(&SlideStyle::subtitleScale, std::numeric_limits<double>::infinity());
        slide->setStyle(&SlideStyle::textStyle, TextStyle::neon);
        slide->setStyle(&SlideStyle::boxColorHex, u"not a colour"_s);
        slide->setOrder(std::numeric_limits<qint64>::min());
        slide->setSubtitle(odd);
        library.addSlideshow(other, {u"without image"_s});
        store.insert(
            std::make_unique<Slideshow>(std::vector<std::unique_ptr<Slide>>(), std::nullopt, QUuid(), odd));
        store.insert(presetFromSlide(u"preset"_s, *slide));
        store.insert(std::make_unique<ContentTemplate>(u"template"_s, QString(2'000'000, u'x')));

        const QVariantMap before = everything(store);
        QCOMPARE(before[u"slides"_s].toList().size(), 3);
        const Store &reopened = library.reopen();
        QCOMPARE(everything(reopened), before);
        QVERIFY(reopened.all<Slideshow>()[0]->batchName().has_value());
        QVERIFY(!reopened.all<Slideshow>()[1]->batchName());
        QVERIFY(reopened.all<Slide>()[0]->imageFilename());
        QVERIFY(!reopened.all<Slide>()[2]->imageFilename());
    }

    void findsRecords()
    {
        TestLibrary library;
        Asset *const a = library.addAsset(u"a"_s);
        Asset *const b = library.addAsset(u"b"_s);
        const QUuid id = b->id();
        Store &store = library.store();
        QCOMPARE(store.find<Asset>(id), b);
        QCOMPARE(store.find<Collection>(id), nullptr);
        QCOMPARE(store.fetch<Asset>([](const Asset &asset) { return asset.name() == u"b"_s; }),
                 std::vector{b});
        QCOMPARE(store.all<Asset>(), (std::vector{a, b}));
        store.remove(b);
        QCOMPARE(store.find<Asset>(id), nullptr);
    }

    void orderOfInsertionOutlivesRemovalsAndRestarts()
    {
        TestLibrary library;
        library.addAsset(u"a"_s);
        library.store().remove(library.addAsset(u"b"_s));
        library.addAsset(u"c"_s);
        library.reopen();
        library.store().remove(library.store().all<Asset>()[1]);
        library.addAsset(u"d"_s);
        library.addAsset(u"e"_s);
        QCOMPARE(textsOf(library.reopen().all<Asset>(), &Asset::name), QStringList({u"a"_s, u"d"_s, u"e"_s}));
    }

    void oneTurnIsOneSave()
    {
        TestLibrary library;
        Slideshow *const slideshow = library.addSlideshow(library.addAsset(u"a"_s), {u"x"_s, u"y"_s});
        const int before = savesIn(library);
        finishTurn();
        QCOMPARE(savesIn(library), before + 1);
        for (int i = 1; i < 100; ++i)
            slideshow->slides()[0]->setStyle(&SlideStyle::textX, i);
        library.store().remove(slideshow->slides()[1]);
        QCOMPARE(savesIn(library), before + 1);
        finishTurn();
        QCOMPARE(savesIn(library), before + 2);
        slideshow->slides()[0]->setStyle(&SlideStyle::textX, 99); // as it is
        finishTurn();
        QCOMPARE(savesIn(library), before + 2);
    }

    /// What a turn makes and removes again never reaches the file.
    void shortLivedRecords()
    {
        TestLibrary library;
        Asset *const asset = library.addAsset(u"a"_s);
        Slideshow *const slideshow = library.addSlideshow(asset, {u"x"_s});
        slideshow->slides()[0]->setText(u"y"_s);
        library.store().remove(slideshow);
        library.store().remove(asset);
        QVERIFY(library.store().flush());
        const Store &store = library.reopen();
        QVERIFY(store.all<Slide>().empty() && store.all<Asset>().empty());
    }

    /// A relation to a record that is not inserted yet is saved once it is.
    void relationsToLaterRecords()
    {
        TestLibrary library;
        auto collection = std::make_unique<Collection>(u"c"_s);
        Asset *const asset = library.addAsset(u"a"_s, collection.get());
        Slideshow *const slideshow = library.addSlideshow(asset, {});
        slideshow->setCollection(collection.get());
        QVERIFY(library.store().flush());
        library.store().insert(std::move(collection));

        auto later = std::make_unique<Asset>(u"f"_s, u"later"_s, nullptr);
        library.addSlideshow(later.get(), {u"x"_s});
        QVERIFY(library.store().flush());
        library.store().insert(std::move(later));

        const auto *const reopened = library.reopen().all<Collection>()[0];
        QVERIFY(library.store().all<Slide>()[0]->asset());
        QCOMPARE(reopened->assets().size(), 1);
        QCOMPARE(reopened->slideshows().size(), 1);
    }

    void failedSaveKeepsTheChanges()
    {
        TestLibrary library;
        Asset *const asset = library.addAsset(u"a"_s);
        Slideshow *const slideshow = library.addSlideshow(asset, {u"before"_s});
        library.addSlideshow(asset, {u"to be removed"_s});
        QVERIFY(library.store().flush());
        const QSignalSpy failed(&library.store(), &Store::saveFailed);

        {
            const FullDisk full(1);
            slideshow->slides()[0]->setText(u"after"_s);
            library.store().remove(library.store().all<Slideshow>()[1]);
            library.addSlideshow(asset, {u"new"_s});
            finishTurn();
            QVERIFY(!library.store().flush());
        }
        QCOMPARE(failed.count(), 1);
        QVERIFY2(failed[0][0].toString().startsWith(u"The library could not be saved: "_s),
                 qPrintable(failed[0][0].toString()));
        QCOMPARE(slideshow->slides()[0]->text(), u"after"_s);
        QVERIFY(library.store().flush());
        QCOMPARE(textsOf(library.reopen().all<Slide>(), &Slide::text), QStringList({u"after"_s, u"new"_s}));
    }
};

QTEST_GUILESS_MAIN(StoreTest)
#include "tst_store.moc"
