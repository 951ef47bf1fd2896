#include "content/openai_service.h"
#include "content/slideshow_generator.h"
#include "model/image_files.h"
#include "tests/content/test_server.h"
#include "tests/model/test_library.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

#include <nlohmann/json.hpp>

#include <algorithm>
#include <limits>

using namespace mosslantern;
using namespace Qt::StringLiterals;

namespace {

const QString threeLines = u"A\nB\nC"_s;

QByteArray answerWith(const QStringList &variations)
{
    const QString list = u'[' + variations.join(u',') + u']';
    const nlohmann::json body{{"choices", {{{"message", {{"content", list.toStdString()}}}}}}};
    const QByteArray bytes = QByteArray::fromStdString(body.dump());
    return "HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(bytes.size()) + "\r\n\r\n" + bytes;
}

/// A generator over a library of its own, with a fixed seed, clock and locale.
class Studio
{
public:
    explicit Studio(const QString &baseUrl = u"invalid"_s)
        : service(baseUrl)
        , generator(
              library.store(), service, preferences(),
              {&m_random, [] { return QDateTime(QDate(2026, 11, 8), QTime(19, 43, 59)); }, u"de_DE.UTF-8"_s})
    {}

    Preferences preferences() const { return Preferences(library.path(u"preferences.ini"_s)); }

    void addAssets(int count, Collection *collection = nullptr)
    {
        for (int i = 0; i < count; ++i)
            library.addAsset(u"asset %1.png"_s.arg(i), collection);
    }

    Collection *addCollection()
    {
        return library.store().insert(std::make_unique<Collection>(u"collection"_s));
    }

    /// Runs to the end; assets have no files here, of which nothing need be said.
    Result<GeneratedBatch> generate()
    {
        ConsoleCapture quiet;
        return QCoro::waitFor(generator.generateBatch());
    }

    std::vector<Slideshow *> slideshows() { return library.store().all<Slideshow>(); }

    QList<qsizetype> slideCounts()
    {
        QList<qsizetype> counts;
        for (const Slideshow *slideshow : slideshows())
            counts += slideshow->slides().size();
        return counts;
    }

    TestLibrary library;
    OpenAIService service;

private:
    QRandomGenerator m_random{20261108};

public:
    SlideshowGenerator generator;
};

} // namespace

class TestSlideshowGenerator : public QObject
{
    Q_OBJECT

private slots:
    void makesBatches();
    void truncatesCounts();
    void drawsFromSource();
    void choosesUniformly();
    void keepsPreviewIndexInRange();
    void keepsPreviewImages();
    void settingsHaveEffects();
    void makesBatchFromVariations();
    void runsAreIndependent();
    void survivesItsEnd();
};

void TestSlideshowGenerator::makesBatches()
{
    Studio studio;
    const QString photo = studio.library.writeFile(u"photo.JPG"_s, "picture");
    QVERIFY(importAsset(QUrl::fromLocalFile(photo), studio.library.store()));
    SlideshowGenerator &generator = studio.generator;
    QSignalSpy busy(&generator, &SlideshowGenerator::isGeneratingChanged);
    const Result<GeneratedBatch> batch = studio.generate();
    QCOMPARE(batch->slideshows.size(), 1);
    QCOMPARE(busy.size(), 2);
    const Slideshow *slideshow = studio.slideshows().at(0);
    QCOMPARE(slideshow->aspectRatio(), AspectRatio::tiktok);
    QVERIFY(!batch->id.isNull());
    QCOMPARE(slideshow->batchId(), batch->id);
    QCOMPARE(slideshow->batchName(), u"Batch 8.11.2026, 19:43"_s);
    QCOMPARE(slideshow->slides().size(), 1);
    const Slide *slide = slideshow->slides().first();
    QCOMPARE(slide->text() + slide->subtitle(), u"Main TextSubtext"_s);
    QCOMPARE(slide->style(), SlideStyle{.boxColorHex = u"000000"_s});
    QCOMPARE(readFile(slide->imageURL().toLocalFile()), "picture"_ba);

    generator.setTextInput(u"1\n2\n3\n4\n5\n6\n7\n8"_s);
    generator.setSelectedStyle(TextStyle::neon);
    generator.setSelectedAspectRatio(AspectRatio::square);
    generator.setTemplateTextPos({0.1, 0.2});
    generator.setTemplateTextScale(1.5);
    generator.setTemplateSubtitlePos({0.3, 0.4});
    generator.setTemplateSubtitleScale(0.5);
    generator.setBoxColor({.red = 1, .green = 1, .blue = 1, .opacity = 0.5});
    generator.setBulkCount(2);
    generator.setBatchName(u"   "_s);
    QCOMPARE(studio.generate()->slideshows.size(), 2);
    for (const Slideshow *made : {studio.slideshows()[1], studio.slideshows()[2]}) {
        QCOMPARE(made->aspectRatio(), AspectRatio::square);
        QCOMPARE(made->batchName(), u"   "_s);
        QCOMPARE(made->batchId(), studio.slideshows()[1]->batchId());
        QCOMPARE(made->slides().size(), 5);
        for (qsizetype i = 0; i < 5; ++i) {
            QCOMPARE(made->slides()[i]->order(), i);
            QCOMPARE(made->slides()[i]->text(), QString::number(i + 1));
            QCOMPARE(made->slides()[i]->style(),
                     SlideStyle(0.1, 0.2, 0.3, 0.4, 1.5, 0.5, TextStyle::neon, u"FFFFFF7F"_s));
        }
    }

    const QDateTime morning(QDate(2026, 1, 2), QTime(7, 3), Qt::OffsetFromUTC, 5 * 3600);
    for (const QString &locale :
         {u"en_US.UTF-8"_s, u"en_US@calendar="_s, u"en_US@numbers=x"_s, QString(158, u'a')})
        QCOMPARE(defaultBatchName(morning, locale).replace(u'\u202F', u' '), u"Batch 1/2/2026, 7:03 AM"_s);
    QCOMPARE(defaultBatchName(morning, u"de_DE.UTF-8@euro"_s), u"Batch 2.1.2026, 07:03"_s);
}

void TestSlideshowGenerator::truncatesCounts()
{
    struct Case
    {
        double slideCount;
        double bulkCount;
        QList<qsizetype> made;
    };
    const double nan = std::numeric_limits<double>::quiet_NaN();
    for (const auto &[slideCount, bulkCount, made] :
         {Case{2.999, 2.999, {2, 2}}, Case{1e300, 1, {3}}, Case{0.999, 3, {}}, Case{5, 0.999, {}},
          Case{-1e300, 3, {}}, Case{nan, nan, {}}}) {
        Studio studio;
        studio.addAssets(2);
        studio.generator.setTextInput(threeLines);
        studio.generator.setSlideCount(slideCount);
        studio.generator.setBulkCount(bulkCount);
        QCOMPARE(studio.generate()->slideshows.size(), made.size());
        QCOMPARE(studio.slideCounts(), made);
    }
}

void TestSlideshowGenerator::drawsFromSource()
{
    Studio studio;
    Collection *full = studio.addCollection();
    Collection *empty = studio.addCollection();
    studio.addAssets(3);
    studio.generator.setTextInput(threeLines);
    studio.addAssets(2, full);

    studio.generator.setSelectedCollection(empty);
    QCOMPARE(studio.generate()->slideshows.size(), 0);
    studio.generator.setSelectedCollection(full);
    QCOMPARE(studio.generator.filteredAssets(), std::vector(full->assets().begin(), full->assets().end()));
    studio.generator.setBulkCount(10);
    QCOMPARE(studio.generate()->slideshows.size(), 10);
    QSet<const Asset *> used;
    for (const Slide *slide : studio.library.store().all<Slide>()) {
        QCOMPARE(slide->asset()->collection(), full);
        used += slide->asset();
    }
    QCOMPARE(used.size(), 2);
}

void TestSlideshowGenerator::choosesUniformly()
{
    Studio studio;
    studio.addAssets(7);
    const std::vector<Asset *> assets = studio.generator.filteredAssets();
    studio.generator.setTextInput(u"x\n"_s.repeated(49'000));
    std::array<double, 49> pairs{};
    qsizetype previous = 0;
    for (const Asset *asset : studio.generator.previewAssetMapping()) {
        const qsizetype index = std::ranges::find(assets, asset) - assets.begin();
        ++pairs[static_cast<size_t>(previous * 7 + index)];
        previous = index;
    }
    double chiSquare = 0;
    for (const double count : pairs)
        chiSquare += (count - 1000) * (count - 1000) / 1000;
    // The 99.9 % point for 48 degrees of freedom.
    QVERIFY2(chiSquare < 84.0, qPrintable(QString::number(chiSquare)));
}

void TestSlideshowGenerator::keepsPreviewIndexInRange()
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

void TestSlideshowGenerator::keepsPreviewImages()
{
    Studio studio;
    SlideshowGenerator &generator = studio.generator;
    generator.setTextInput(threeLines.repeated(10));
    QVERIFY(generator.previewAssetMapping().isEmpty());
    Collection *collection = studio.addCollection();
    studio.addAssets(20);
    studio.addAssets(20, collection);
    QVERIFY(generator.previewAssetMapping().isEmpty());

    generator.updatePreviewAssetMapping();
    const QList<Asset *> first = generator.previewAssetMapping();
    QCOMPARE(first.size(), generator.entries().size());
    QSignalSpy changes(&generator, &SlideshowGenerator::previewAssetMappingChanged);
    generator.updatePreviewAssetMapping();
    generator.setTextInput(u"changed"_s + generator.textInput());
    QCOMPARE(generator.previewAssetMapping(), first);
    QCOMPARE(changes.size(), 0);

    generator.setTextInput(threeLines);
    QCOMPARE(generator.previewAssetMapping(), first.first(3));
    generator.setTextInput(generator.textInput() + u"\nD"_s);
    QCOMPARE(generator.previewAssetMapping().first(3), first.first(3));
    QCOMPARE(generator.previewAssetMapping().size(), 4);

    const QList<Asset *> before = generator.previewAssetMapping();
    generator.setSelectedCollection(collection);
    const QList<Asset *> after = generator.previewAssetMapping();
    for (qsizetype i = 0; i < after.size(); ++i) {
        QCOMPARE(after[i]->collection(), collection);
        QCOMPARE(after[i] == before[i], before[i]->collection() == collection);
    }

    generator.setTextInput(threeLines);
    changes.clear();
    Asset *const gone = generator.previewAsset(0);
    gone->setCollection(nullptr);
    QCOMPARE(generator.previewAsset(0), gone);
    QCOMPARE(changes.size(), 0);
    studio.library.store().remove(gone);
    QCOMPARE(generator.previewAsset(0), nullptr);
    QVERIFY(changes.size() > 0);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(generator.previewAsset(0), nullptr);

    studio.library.store().remove(collection);
    QCOMPARE(generator.selectedCollection(), nullptr);
    QVERIFY(generator.previewAsset(0));
    for (Asset *asset : studio.library.store().all<Asset>())
        studio.library.store().remove(asset);
    QCOMPARE(generator.previewAssetMapping(), QList<Asset *>(3, nullptr));
    generator.updatePreviewAssetMapping();
    QVERIFY(generator.previewAssetMapping().isEmpty());
}

void TestSlideshowGenerator::settingsHaveEffects()
{
    Studio studio;
    SlideshowGenerator &generator = studio.generator;
    const auto colorAfter = [&generator](TextStyle style) {
        generator.setSelectedStyle(style);
        return hexFromColor(generator.boxColor());
    };
    QCOMPARE(colorAfter(TextStyle::boxed), u"FFFFFF"_s);
    QCOMPARE(colorAfter(TextStyle::neon), u"FFFFFF"_s);
    QCOMPARE(colorAfter(TextStyle::classic), u"000000"_s);
    generator.setBoxColor({.red = 1, .green = 0, .blue = 0, .opacity = 1});
    QCOMPARE(colorAfter(TextStyle::classic), u"FF0000"_s);

    generator.setOpenAiApiKey(u"sk-1"_s);
    QCOMPARE(studio.preferences().openAiApiKey(), u"sk-1"_s);
    const SlideshowGenerator later(studio.library.store(), studio.service, studio.preferences());
    QCOMPARE(later.openAiApiKey(), u"sk-1"_s);
    const QString file = studio.library.writeFile(u"file"_s, {});
    SlideshowGenerator unable(studio.library.store(), studio.service, Preferences(file + u"/p.ini"_s));
    ConsoleCapture console;
    unable.setOpenAiApiKey(u"sk"_s);
    QCOMPARE(unable.openAiApiKey(), u"sk"_s);
    QVERIFY(console.lines().join(u'\n').startsWith(u"Failed to store the API key: "_s));
}

void TestSlideshowGenerator::makesBatchFromVariations()
{
    const TestServer server(TestServer::always(answerWith({
        uR"({"slides":[{"main":"V1"},{"main":"x"}]})"_s,
        uR"({"slides":"broken"})"_s,
        uR"({"slides":[]})"_s,
        uR"({"slides":[{"main":"V2","subtitle":"s"}]})"_s,
    })));
    Studio studio(u"http://127.0.0.1:%1/v1"_s.arg(server.port()));
    studio.addAssets(2);
    SlideshowGenerator &generator = studio.generator;
    generator.setIsAiMode(true);
    generator.setBulkCount(5.9);
    generator.setOpenAiApiKey(u"sk-0123456789"_s);
    generator.setCustomPrompt(u"my goal"_s);
    generator.setTextInput(u"{not JSON"_s);
    generator.setBatchName(u"Mine"_s);
    QSignalSpy busy(&generator, &SlideshowGenerator::isGeneratingChanged);
    auto run = generator.generateBatch();
    QVERIFY(generator.isGenerating());
    generator.setSelectedStyle(TextStyle::boxed);
    ConsoleCapture console;
    const Result<GeneratedBatch> batch = QCoro::waitFor(run);
    QCOMPARE(console.lines().filter(u"❌"_s).size(), 1);
    QCOMPARE(batch->slideshows.size(), 2);
    QVERIFY(!generator.isGenerating());
    QCOMPARE(busy.size(), 2);

    const QByteArray request = server.requests().at(0);
    QVERIFY(request.contains("\r\nAuthorization: Bearer sk-0123456789\r\n"));
    QVERIFY(request.contains("create 5 variations"));
    QVERIFY(request.contains("each variation:\\n{not JSON\\n"));
    QVERIFY(request.contains("\\n\\\"my goal\\\"\\n"));
    QCOMPARE(studio.slideCounts(), QList<qsizetype>({2, 1}));
    for (const Slideshow *slideshow : studio.slideshows()) {
        QCOMPARE(slideshow->batchId(), batch->id);
        QCOMPARE(slideshow->batchName(), u"Mine"_s);
        QCOMPARE(slideshow->slides().first()->textStyle(), TextStyle::boxed);
        // The colour is fixed when the run begins, as its name is.
        QCOMPARE(slideshow->slides().first()->boxColorHex(), u"000000"_s);
    }
    QCOMPARE(studio.slideshows()[1]->slides().first()->text(), u"V2"_s);
    QCOMPARE(studio.slideshows()[1]->slides().first()->subtitle(), u"s"_s);
}

void TestSlideshowGenerator::runsAreIndependent()
{
    QList<QTcpSocket *> waiting;
    const TestServer server([&waiting](QTcpSocket *socket) { waiting += socket; });
    Studio studio(u"http://127.0.0.1:%1/v1"_s.arg(server.port()));
    studio.addAssets(1);
    SlideshowGenerator &generator = studio.generator;
    generator.setIsAiMode(true);
    generator.setBatchName(u"first"_s);
    auto first = generator.generateBatch();
    QTRY_COMPARE(waiting.size(), 1);
    generator.setBatchName(u"second"_s);
    auto second = generator.generateBatch();
    QTRY_COMPARE(waiting.size(), 2);

    const QString document = uR"({"slides":[{"main":"x"}]})"_s;
    ConsoleCapture quiet;
    waiting[1]->write(answerWith({document}));
    const Result<GeneratedBatch> secondBatch = QCoro::waitFor(second);
    QVERIFY(!generator.isGenerating());
    QCOMPARE(studio.slideshows().size(), 1u);
    waiting[0]->write(answerWith({document, document}));
    const Result<GeneratedBatch> firstBatch = QCoro::waitFor(first);
    QVERIFY(firstBatch->id != secondBatch->id);
    QStringList names;
    for (const Slideshow *slideshow : studio.slideshows())
        names += *slideshow->batchName();
    QCOMPARE(names, QStringList({u"second"_s, u"first"_s, u"first"_s}));
}

void TestSlideshowGenerator::survivesItsEnd()
{
    QList<QTcpSocket *> waiting;
    const TestServer server([&waiting](QTcpSocket *socket) { waiting += socket; });
    TestLibrary library;
    library.addAsset(u"a.png"_s);
    auto service = std::make_unique<OpenAIService>(u"http://127.0.0.1:%1/v1"_s.arg(server.port()));
    const auto begin = [&] {
        auto generator = std::make_unique<SlideshowGenerator>(
            library.store(), *service, Preferences(library.path(u"preferences.ini"_s)));
        generator->setIsAiMode(true);
        return generator;
    };
    ConsoleCapture console;
    auto generator = begin();
    auto abandoned = generator->generateBatch();
    QTRY_COMPARE(waiting.size(), 1);
    generator.reset();
    waiting[0]->write(answerWith({uR"({"slides":[{"main":"x"}]})"_s}));
    QVERIFY(!QCoro::waitFor(abandoned));
    QVERIFY(library.store().all<Slideshow>().empty());
    QCOMPARE(console.lines(), QStringList());

    generator = begin();
    auto cancelled = generator->generateBatch();
    service.reset();
    QVERIFY(!QCoro::waitFor(cancelled));
    QVERIFY(!generator->isGenerating());
    QCOMPARE(console.lines(), QStringList{u"AI Generation failed: the request was cancelled"_s});
    QVERIFY(library.store().all<Slideshow>().empty());
}

QTEST_GUILESS_MAIN(TestSlideshowGenerator)
#include "tst_slideshow_generator.moc"
