#include "model/image_files.h"
#include "tests/ui/generator/generator_studio.h"

#include <QtCore/QTimeZone>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

#include <algorithm>
#include <limits>

using namespace mosslantern;
using namespace Qt::StringLiterals;

namespace {

const QString threeLines = u"A\nB\nC"_s;
const QByteArray oneSlide = R"({"slides":[{"main":"x"}]})";

QList<qsizetype> slideCounts(Studio &studio)
{
    QList<qsizetype> counts;
    for (const Slideshow *slideshow : studio.slideshows())
        counts += slideshow->slides().size();
    return counts;
}

} // namespace

class TestSlideshowGenerator : public QObject
{
    Q_OBJECT

private slots:
    void makesBatches()
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
        const Result<GeneratedBatch> second = studio.generate();
        QCOMPARE(second->slideshows, (QList{studio.slideshows()[1], studio.slideshows()[2]}));
        for (const Slideshow *made : second->slideshows) {
            QCOMPARE(made->aspectRatio(), AspectRatio::square);
            QCOMPARE(made->batchName(), u"   "_s);
            QCOMPARE(made->batchId(), second->id);
            QCOMPARE(made->slides().size(), 5);
            for (qsizetype i = 0; i < 5; ++i) {
                QCOMPARE(made->slides()[i]->order(), i);
                QCOMPARE(made->slides()[i]->text(), QString::number(i + 1));
                QCOMPARE(made->slides()[i]->style(),
                         SlideStyle(0.1, 0.2, 0.3, 0.4, 1.5, 0.5, TextStyle::neon, u"FFFFFF7F"_s));
            }
        }
    }

    void namesBatches()
    {
        const QDateTime morning(QDate(2026, 1, 2), QTime(7, 3), QTimeZone(5 * 3600));
        for (const QString &locale :
             {u"en_US.UTF-8"_s, u"en_US@calendar="_s, u"en_US@numbers=x"_s, QString(158, u'a')})
            QCOMPARE(defaultBatchName(morning, locale), u"Batch 1/2/2026, 7:03 AM"_s);
        QCOMPARE(defaultBatchName(morning, u"de_DE.UTF-8@euro"_s), u"Batch 2.1.2026, 07:03"_s);
        for (const QString &locale : {u"ar_EG"_s, u"fa_IR"_s, u"he_IL"_s, u"fr_CA"_s}) {
            const QString name = defaultBatchName(morning, locale);
            const auto isPlain = [](QChar c) {
                return c == u' ' || !(c.isSpace() || c.category() == QChar::Other_Format);
            };
            QVERIFY2(std::ranges::all_of(name, isPlain), qPrintable(name));
        }
    }

    void truncatesCounts()
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
            QCOMPARE(slideCounts(studio), made);
        }
    }

    void drawsFromSource()
    {
        Studio studio;
        Collection *full = studio.library.addCollection(u"c"_s);
        Collection *empty = studio.library.addCollection(u"c"_s);
        studio.addAssets(3);
        studio.addAssets(2, full);
        studio.generator.setTextInput(threeLines);
        studio.generator.setSelectedCollection(empty);
        QCOMPARE(studio.generate()->slideshows.size(), 0);
        studio.generator.setSelectedCollection(full);
        QCOMPARE(studio.generator.filteredAssets(),
                 std::vector(full->assets().begin(), full->assets().end()));
        studio.generator.setBulkCount(10);
        QCOMPARE(studio.generate()->slideshows.size(), 10);
        QSet<Asset *> used;
        for (const Slide *slide : studio.library.store().all<Slide>())
            used += slide->asset();
        QCOMPARE(used, QSet<Asset *>(full->assets().begin(), full->assets().end()));
    }

    void choosesUniformly()
    {
        Studio studio;
        studio.addAssets(7);
        const std::vector<Asset *> assets = studio.generator.filteredAssets();
        studio.generator.setTextInput(u"x\n"_s.repeated(49'000));
        std::array<double, 49> pairs{};
        qsizetype previous = 0;
        for (const Asset *asset : studio.generator.previewAssetMapping().values()) {
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

    void choosesTheColorWithTheStyle()
    {
        Studio studio;
        const auto colorAfter = [&](TextStyle style) {
            studio.generator.setSelectedStyle(style);
            return hexFromColor(studio.generator.boxColor());
        };
        QCOMPARE(colorAfter(TextStyle::boxed), u"FFFFFF"_s);
        QCOMPARE(colorAfter(TextStyle::neon), u"FFFFFF"_s);
        QCOMPARE(colorAfter(TextStyle::classic), u"000000"_s);
        studio.generator.setBoxColor({.red = 1, .green = 0, .blue = 0, .opacity = 1});
        QCOMPARE(colorAfter(TextStyle::classic), u"FF0000"_s);
    }

    void storesTheKey()
    {
        Studio studio;
        studio.generator.setOpenAiApiKey(u"sk-1"_s);
        const SlideshowGenerator later(studio.library.store(), studio.service, studio.preferences());
        QCOMPARE(later.openAiApiKey(), u"sk-1"_s);
        const QString file = studio.library.writeFile(u"file"_s, {});
        SlideshowGenerator unable(studio.library.store(), studio.service, Preferences(file + u"/p.ini"_s));
        ConsoleCapture console;
        unable.setOpenAiApiKey(u"sk"_s);
        QCOMPARE(unable.openAiApiKey(), u"sk"_s);
        QVERIFY(console.lines().join(u'\n').startsWith(u"Failed to store the API key: "_s));
    }

    void makesBatchFromVariations()
    {
        const TestServer server(TestServer::always(
            chatAnswer(R"([{"slides":[{"main":"V1"},{"main":"x"}]},{"slides":"broken"},{"slides":[]},)"
                       R"({"slides":[{"main":"V2","subtitle":"s"}]}])")));
        Studio studio(server.serviceUrl());
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

        for (const char *sent : {"\r\nAuthorization: Bearer sk-0123456789\r\n", "create 5 variations",
                                 "each variation:\\n{not JSON\\n", "\\n\\\"my goal\\\"\\n"})
            QVERIFY2(server.requests().at(0).contains(sent), sent);
        QCOMPARE(slideCounts(studio), QList<qsizetype>({2, 1}));
        for (const Slideshow *slideshow : studio.slideshows()) {
            QCOMPARE(slideshow->batchId(), batch->id);
            QCOMPARE(slideshow->batchName(), u"Mine"_s);
            QCOMPARE(slideshow->slides().first()->style().textStyle, TextStyle::boxed);
            // The colour is fixed when the run begins, as its name is.
            QCOMPARE(slideshow->slides().first()->style().boxColorHex, u"000000"_s);
        }
        const Slide *const last = studio.slideshows()[1]->slides().first();
        QCOMPARE(last->text() + last->subtitle(), u"V2s"_s);
    }

    void runsAreIndependent()
    {
        QList<QTcpSocket *> waiting;
        const TestServer server([&waiting](QTcpSocket *socket) { waiting += socket; });
        Studio studio(server.serviceUrl());
        studio.addAssets(1);
        SlideshowGenerator &generator = studio.generator;
        generator.setIsAiMode(true);
        generator.setBatchName(u"first"_s);
        auto first = generator.generateBatch();
        QTRY_COMPARE(waiting.size(), 1);
        generator.setBatchName(u"second"_s);
        auto second = generator.generateBatch();
        QTRY_COMPARE(waiting.size(), 2);

        ConsoleCapture quiet;
        waiting[1]->write(chatAnswer('[' + oneSlide + ']'));
        const Result<GeneratedBatch> secondBatch = QCoro::waitFor(second);
        QVERIFY(!generator.isGenerating());
        QCOMPARE(studio.slideshows().size(), 1u);
        waiting[0]->write(chatAnswer('[' + oneSlide + ',' + oneSlide + ']'));
        const Result<GeneratedBatch> firstBatch = QCoro::waitFor(first);
        QVERIFY(firstBatch->id != secondBatch->id);
        const auto name = [](const Slideshow *slideshow) { return *slideshow->batchName(); };
        QCOMPARE(textsOf(studio.slideshows(), name), QStringList({u"second"_s, u"first"_s, u"first"_s}));
    }

    void survivesItsEnd()
    {
        QList<QTcpSocket *> waiting;
        const TestServer server([&waiting](QTcpSocket *socket) { waiting += socket; });
        TestLibrary library;
        library.addAsset(u"a.png"_s);
        auto service = std::make_unique<OpenAIService>(server.serviceUrl());
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
        waiting[0]->write(chatAnswer('[' + oneSlide + ']'));
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
};

QTEST_GUILESS_MAIN(TestSlideshowGenerator)
#include "tst_slideshow_generator.moc"
