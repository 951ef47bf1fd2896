#include "content/slide_documents.h"
#include "tests/content/test_server.h"
#include "tests/ui/generator/generator_test.h"

using namespace mosslantern;
using namespace Qt::StringLiterals;

namespace {

QByteArray answer(const QByteArray &status, const QByteArray &body)
{
    return "HTTP/1.1 " + status + "\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\n\r\n" +
           body;
}

const QByteArray twoVariations =
    "{\"choices\":[{\"message\":{\"content\":"
    "\"[{\\\"slides\\\":[{\\\"main\\\":\\\"A\\\"}]},{\\\"slides\\\":[{\\\"main\\\":\\\"B\\\"}]}]\"}}]}";

} // namespace

class GenerationScreenTest : public GeneratorTest
{
    Q_OBJECT

private:
    /// Opens the screen and starts a run that waits for the service.
    void startAiRun(TestServer &server)
    {
        session().setServiceUrl(u"http://127.0.0.1:%1"_s.arg(server.port()));
        openScreen(1);
        generator().setIsAiMode(true);
        generator().setOpenAiApiKey(u"key"_s);
        generator().setBulkCount(5);
        QVERIFY(clickInPanel(u"generate"_s));
        QTRY_COMPARE(server.requests().size(), 1);
        settle();
    }

private slots:
    void makesABatch()
    {
        openScreen(3);
        generator().setBulkCount(3);
        generator().setSelectedAspectRatio(AspectRatio::square);
        generator().setBatchName(u"Batch"_s);
        ConsoleCapture quiet;
        QVERIFY(clickInPanel(u"generate"_s));
        QTRY_COMPARE(store().all<Slideshow>().size(), 3u);
        for (const Slideshow *slideshow : store().all<Slideshow>()) {
            QCOMPARE(slideshow->batchName(), u"Batch"_s);
            QCOMPARE(slideshow->aspectRatio(), AspectRatio::square);
        }
        QVERIFY(isShown(u"livePreview"_s) && !isShown(u"generatingOverlay"_s));
        QVERIFY(!generator().isGenerating());
    }

    void coversThePreviewDuringAnAiRun()
    {
        QTcpSocket *client = nullptr;
        TestServer server([&](QTcpSocket *socket) { client = socket; });
        startAiRun(server);
        QVERIFY(isShown(u"generatingOverlay"_s));
        QVERIFY(session().findText(u"Generating with AI..."_s));
        QVERIFY(isEnabled(u"generate"_s));
        QVERIFY(!isEnabled(u"liveMainText"_s));

        ConsoleCapture quiet;
        client->write(answer("200 OK", twoVariations));
        QTRY_VERIFY(!isShown(u"generatingOverlay"_s));
        QVERIFY(isEnabled(u"liveMainText"_s));
        QCOMPARE(store().all<Slideshow>().size(), 2u);
        QCOMPARE(store().all<Slideshow>()[1]->slides().first()->text(), u"B"_s);
    }

    void reportsAFailedAiRun()
    {
        TestServer server(TestServer::always(answer("401 Unauthorized", "{}")));
        const ConsoleCapture console;
        startAiRun(server);
        QTRY_VERIFY(!generator().isGenerating());
        settle();
        QVERIFY(!isShown(u"generatingOverlay"_s));
        QCOMPARE(console.lines().filter(QRegularExpression(u"^AI Generation failed: .+"_s)).size(), 1);
        QVERIFY(store().all<Slideshow>().empty());
    }

    void canBeLeftDuringAiRuns()
    {
        QList<QTcpSocket *> clients;
        TestServer server([&](QTcpSocket *socket) { clients += socket; });
        startAiRun(server);
        QVERIFY(clickInPanel(u"generate"_s));
        QTRY_COMPARE(clients.size(), 2);
        generator().setSelectedAspectRatio(AspectRatio::square);
        const QPointer<SlideshowGenerator> left = &generator();
        const RunningWork &work = view().context()->work();
        QVERIFY(session().click(u"sidebarRow0"_s));
        QTRY_VERIFY(!session().window()->findChild<SlideshowsView *>());

        ConsoleCapture quiet;
        clients[1]->write(answer("200 OK", twoVariations));
        QTRY_COMPARE(store().all<Slideshow>().size(), 2u);
        QVERIFY(work.isGenerating());
        QVERIFY(session().click(u"sidebarRow2"_s));
        QVERIFY(!isShown(u"generatingOverlay"_s));
        QVERIFY(left && left != &generator());
        clients[0]->write(answer("200 OK", twoVariations));
        QTRY_COMPARE(store().all<Slideshow>().size(), 4u);
        QTRY_VERIFY(!left);
        QVERIFY(!work.isGenerating());
        for (const Slideshow *slideshow : store().all<Slideshow>())
            QCOMPARE(slideshow->aspectRatio(), AspectRatio::square);
    }

    void canBeClosedDuringAnAiRun()
    {
        QTcpSocket *client = nullptr;
        TestServer server([&](QTcpSocket *socket) { client = socket; });
        startAiRun(server);
        const QPointer<SlideshowGenerator> left = &generator();
        session().window()->close();
        const ConsoleCapture console;
        session().close();
        QVERIFY(!left);
        client->write(answer("200 OK", twoVariations));
        client->disconnectFromHost();
        QTest::qWait(100);
        session().open();
        QVERIFY(store().all<Slideshow>().empty());
        QCOMPARE(console.lines(), QStringList());
    }

    void keepsItsStateUntilItIsLeft()
    {
        openScreen(1);
        QVERIFY(session().click(u"generatorStyle2"_s));
        preview().mainBlock()->startEditing();
        QTRY_VERIFY(session().find(u"textEdit"_s) && session().find(u"textEdit"_s)->hasActiveFocus());
        session().key(Qt::Key_A, Qt::ControlModifier);
        session().type(u"Typed"_s);
        QVERIFY(session().click(u"screenTab1"_s));
        QVERIFY(!isShown(u"livePreview"_s));
        QVERIFY(!preview().mainBlock()->isFocused());
        QVERIFY(session().click(u"screenTab0"_s));
        QCOMPARE(generator().previewEntries().entry(0)->main, u"Typed"_s);
        QCOMPARE(property(u"generatorStyle"_s, "currentIndex"), 2);

        generator().setOpenAiApiKey(u"kept"_s);
        const QPointer<SlideshowGenerator> left = &generator();
        QVERIFY(session().click(u"sidebarRow1"_s));
        QTRY_VERIFY(!left);
        QVERIFY(session().click(u"sidebarRow2"_s));
        QCOMPARE(generator().textInput(), defaultSlideContent.toString());
        QCOMPARE(generator().selectedStyle(), TextStyle::classic);
        QCOMPARE(generator().openAiApiKey(), u"kept"_s);
    }
};

QTEST_MAIN(GenerationScreenTest)
#include "tst_generation_screen.moc"
