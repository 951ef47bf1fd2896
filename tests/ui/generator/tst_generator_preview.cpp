#include "tests/ui/generator/generator_studio.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace mosslantern;
using namespace Qt::StringLiterals;

class TestGeneratorPreview : public QObject
{
    Q_OBJECT

private:
    const QString threeLines = u"A\nB\nC"_s;

private slots:
    void keepsPreviewIndexInRange()
    {
        Studio studio;
        SlideshowGenerator &generator = studio.generator;
        generator.setTextInput(u"A\nB\nC\nD"_s);
        generator.setCurrentPreviewIndex(3);
        QCOMPARE(generator.currentPreviewEntry().main, u"D"_s);
        QSignalSpy indexChanges(&generator, &SlideshowGenerator::currentPreviewIndexChanged);
        QSignalSpy entryChanges(&generator, &SlideshowGenerator::currentPreviewEntryChanged);
        generator.setTextInput(u"A\nB"_s);
        QCOMPARE(generator.currentPreviewIndex(), 1);
        generator.setTextInput(QString());
        QCOMPARE(generator.currentPreviewIndex(), 0);
        QCOMPARE(generator.currentPreviewEntry(), SlideText(u"Main Text"_s, u"Subtitle Text"_s));
        generator.setTextInput(threeLines);
        QCOMPARE(generator.currentPreviewEntry().main, u"A"_s);
        QCOMPARE(indexChanges.size(), 2);
        QCOMPARE(entryChanges.size(), 3);
        generator.setCurrentPreviewIndex(3);
        QCOMPARE(generator.currentPreviewEntry().main, u"Main Text"_s);

        // A broken document is reported when it comes and by each slideshow that would be made of it.
        studio.addAssets(1);
        ConsoleCapture console;
        generator.setTextInput(u"{"_s);
        generator.setTextInput(u"{"_s);
        generator.updatePreviewAssetMapping();
        QCOMPARE(console.lines().size(), 2);
        generator.setBulkCount(3);
        QCOMPARE(QCoro::waitFor(generator.generateBatch())->slideshows.size(), 0);
        QCOMPARE(console.lines().size(), 8);
    }

    void keepsPreviewImages()
    {
        Studio studio;
        SlideshowGenerator &generator = studio.generator;
        generator.setTextInput(threeLines.repeated(10));
        QVERIFY(generator.previewAssetMapping().isEmpty());
        Collection *collection = studio.library.addCollection(u"c"_s);
        studio.addAssets(20);
        studio.addAssets(20, collection);
        QVERIFY(generator.previewAssetMapping().isEmpty());

        generator.updatePreviewAssetMapping();
        const QList<Asset *> first = generator.previewAssetMapping().values();
        QCOMPARE(first.size(), generator.previewEntries().count());
        QSignalSpy changes(&generator.previewEntries(), &PreviewEntryModel::dataChanged);
        generator.updatePreviewAssetMapping();
        QCOMPARE(changes.size(), 0);
        generator.setTextInput(u"changed"_s + generator.textInput());
        QCOMPARE(generator.previewAssetMapping().values(), first);
        QCOMPARE(changes.size(), 1);

        generator.setTextInput(threeLines);
        QCOMPARE(generator.previewAssetMapping().values(), first.first(3));
        generator.setTextInput(generator.textInput() + u"\nD"_s);
        QCOMPARE(generator.previewAssetMapping().values().first(3), first.first(3));
        QCOMPARE(generator.previewAssetMapping().size(), 4);

        const QList<Asset *> before = generator.previewAssetMapping().values();
        generator.setSelectedCollection(collection);
        const QList<Asset *> after = generator.previewAssetMapping().values();
        for (qsizetype i = 0; i < after.size(); ++i) {
            QCOMPARE(after[i]->collection(), collection);
            QCOMPARE(after[i] == before[i], before[i]->collection() == collection);
        }

        generator.setTextInput(threeLines);
        changes.clear();
        Asset *const gone = generator.previewEntries().asset(0);
        gone->setCollection(nullptr);
        QCOMPARE(generator.previewEntries().asset(0), gone);
        QCOMPARE(changes.size(), 0);
        studio.library.store().remove(gone);
        QCOMPARE(generator.previewEntries().asset(0), nullptr);
        QVERIFY(changes.size() > 0);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(generator.previewEntries().asset(0), nullptr);

        studio.library.store().remove(collection);
        QCOMPARE(generator.selectedCollection(), nullptr);
        QVERIFY(generator.previewEntries().asset(0));
        for (Asset *asset : studio.library.store().all<Asset>())
            studio.library.store().remove(asset);
        QCOMPARE(generator.previewEntries().count(), 3);
        QVERIFY(generator.previewAssetMapping().isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestGeneratorPreview)
#include "tst_generator_preview.moc"
