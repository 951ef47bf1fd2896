#include "content/openai_request.h"
#include "content/openai_service.h"
#include "tests/content/test_server.h"
#include "tests/model/test_library.h"
#include "tests/table.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QProcessEnvironment>
#include <QtCore/QTimer>

#include <nlohmann/json.hpp>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <thread>

using namespace mosslantern;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

const QByteArray emptyList = R"({"choices":[{"message":{"content":"[]"}}]})";

QString ask(OpenAIService &service, const QString &apiKey = u"sk-0123456789"_s)
{
    const auto variations = QCoro::waitFor(service.generateVariations(apiKey, u"goal"_s, u"example"_s, 1));
    return variations ? variations->join(u'|') : u'<' + describe(variations.error()) + u'>';
}

/// Sends `chunk` again and again until the other side closes, which sets `closed`.
TestServer::Answer flood(const QByteArray &start, const QByteArray &chunk, std::chrono::milliseconds interval,
                         bool *closed)
{
    return [=](QTcpSocket *socket) {
        socket->write(start);
        auto *timer = new QTimer(socket);
        QObject::connect(timer, &QTimer::timeout, socket, [socket, chunk] {
            if (socket->bytesToWrite() < 4'000'000)
                socket->write(chunk);
        });
        QObject::connect(socket, &QTcpSocket::disconnected, socket, [closed] { *closed = true; });
        timer->start(interval);
    };
}

} // namespace

class TestOpenAIService : public QObject
{
    Q_OBJECT

private slots:
    void formsAddress()
    {
        QProcessEnvironment environment;
        const QString usual = OpenAIService::baseUrlFrom(environment);
        environment.insert(u"OPENAI_BASE_URL"_s, u"http://127.8.9.1/v1/"_s);
        const QString own = OpenAIService::baseUrlFrom(environment);
        const std::pair<QString, QString> taken[]{
            {usual, u"https://api.openai.com/v1/chat/completions"_s},
            {own, u"http://127.8.9.1/v1/chat/completions"_s},
            {u"https://example.org:8443/a%2Fb/v1//"_s,
             u"https://example.org:8443/a%2Fb/v1/chat/completions"_s},
            {u"http://localhost:1/v1"_s, u"http://localhost:1/v1/chat/completions"_s},
            {u"http://[::1]:80/v1"_s, u"http://[::1]:80/v1/chat/completions"_s},
        };
        for (const auto &[base, address] : taken)
            QCOMPARE(chatCompletionsUrl(base).toString(QUrl::FullyEncoded), address);
        for (const QString &refused :
             {u"http://example.org/v1"_s, u"http://localhost.example.org/v1"_s, u"http://10.0.0.1/v1"_s,
              u"ftp://localhost/v1"_s, u"api.openai.com/v1"_s, u"https:///v1"_s,
              u"https://u:p@example.org/v1"_s, u"https://example.org/v1?a=b"_s, u"https://example.org/v1#a"_s,
              u"https://exa mple.org"_s, QString()}) {
            OpenAIService service(refused);
            QCOMPARE(ask(service), u"<invalidURL>"_s);
        }
    }

    void sendsRequest()
    {
        const QString key = u" ké y "_s;
        const qint64 count = 3;
        const TestServer server(TestServer::always(httpAnswer(emptyList)));
        OpenAIService service(server.serviceUrl() + u'/');
        const auto variations = QCoro::waitFor(
            service.generateVariations(key, u"my \"goal\"\n😀%2"_s, u"{\"slides\":[]}\t/%1"_s, count));
        QCOMPARE(*variations, QStringList());
        QCOMPARE(ask(service, {}), QString());
        QVERIFY(server.requests().last().contains("\r\nAuthorization: Bearer \r\n"));

        const QByteArray request = server.requests().first();
        const qsizetype end = request.indexOf("\r\n\r\n");
        const QByteArrayList lines = request.first(end).split('\n');
        QCOMPARE(lines.first(), "POST /v1/chat/completions HTTP/1.1\r"_ba);
        QCOMPARE(lines.count("Content-Type: application/json\r"), 1);
        QCOMPARE(lines.count("Authorization: Bearer " + key.toUtf8() + '\r'), 1);

        const std::string expectedPrompt =
            QString(
                u"You are a creative assistant helping to generate text for slideshows.\nThe user wants to "
                "create # variations of a slideshow based on a specific topic or goal.\n\nHere is the "
                "example JSON structure that MUST be followed exactly for each "
                "variation:\n{\"slides\":[]}\t/%1\n\n"
                "The user's goal/prompt is:\n\"my \"goal\"\n😀%2\"\n\nPlease generate # DIFFERENT variations "
                "of the content.\nReturn ONLY a raw JSON array of objects, where each object follows the "
                "structure of the example above.\nDo not include markdown formatting (like ```json ... ```), "
                "just the raw JSON."_s)
                .replace(u'#', QString::number(count))
                .toStdString();
        const nlohmann::json expected{
            {"model", "gpt-4o"},
            {"messages",
             {{{"role", "system"}, {"content", "You are a helpful assistant that outputs raw JSON."}},
              {{"role", "user"}, {"content", expectedPrompt}}}},
            {"temperature", 0.9},
            {"n", 1},
        };
        QCOMPARE(nlohmann::json::parse(request.sliced(end + 4).toStdString()).dump(), expected.dump());
        QVERIFY(!request.sliced(end + 4).contains("\": "));

        // Some requests must not be sent at all.
        for (const QString &bad :
             {u"sk\r\nX-Injected: 1"_s, u"s\u0085k"_s, u"sk\t"_s, u"sk"_s + QChar(0), QString(QChar(0xD800))})
            QCOMPARE(ask(service, bad),
                     u"<the API key holds a line break or another character that cannot be sent>"_s);
        const auto odd =
            QCoro::waitFor(service.generateVariations(u"sk"_s, QString(QChar(0xD800)), u"{}"_s, 1));
        QCOMPARE(describe(odd.error()), u"the request holds half of a surrogate pair"_s);
        QTest::qWait(50);
        QCOMPARE(server.requests().size(), 2);
    }

    void answers_data()
    {
        const auto row = table<QByteArray, QString, QString>({"bytes", "expected", "console"});
        const QByteArray whole = chatAnswer(R"([{"b":1},{"a":1}])");
        const QByteArray list = whole.sliced(whole.indexOf("\r\n\r\n") + 4);
        const QString variations = u"{\n  \"b\": 1\n}|{\n  \"a\": 1\n}"_s;
        row("two", whole, variations, {});
        row("in chunks",
            "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n5\r\n" + list.first(5) + "\r\n" +
                QByteArray::number(list.size() - 5, 16) + "\r\n" + list.sliced(5) + "\r\n0\r\n\r\n",
            variations, {});
        row("until closed", "HTTP/1.1 200 OK\r\n\r\n" + list, variations, {});
        const auto refused = [&row](const char *name, const QByteArray &status,
                                    const QByteArray &headers = {}) {
            row(name, httpAnswer("{\"error\":\"é sk-0123456789\"}", status, headers),
                u"<apiError(\"{\"error\":\"é [API key]\"}\")>"_s,
                u"OpenAI API Error: {\"error\":\"é [API key]\"}"_s);
        };
        refused("401", "401 Unauthorized", "WWW-Authenticate: Basic realm=\"x\"\r\n");
        refused("407", "407 Proxy", "Proxy-Authenticate: Basic realm=\"x\"\r\n");
        refused("600", "600 Unheard Of");
        row("304 without body", "HTTP/1.1 304 Not Modified\r\n\r\n", u"<apiError(\"\")>"_s,
            u"OpenAI API Error: "_s);
        row("compressed unasked", httpAnswer("\x1F\x8B\x08", "200 OK", "Content-Encoding: gzip\r\n"),
            u"<parse error at line 1, column 1: syntax error while parsing value - invalid literal>"_s, {});
        row("after an interim answer", "HTTP/1.1 103 Early\r\nLink: x\r\n\r\n" + whole, variations, {});
        row("header without end", "HTTP/1.1 200 OK\r\nX: " + QByteArray(70'000, 'x'),
            u"<the answer of the service is malformed>"_s, {});
        row("two lengths", "HTTP/1.1 200 OK\r\nContent-Length: 2\r\nContent-Length: 3\r\n\r\n{}",
            u"<the answer of the service is malformed>"_s, {});
        row("no chunk", "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n-5\r\nabcde\r\n0\r\n\r\n",
            u"<the answer of the service is malformed>"_s, {});
        row("dropped", {}, u"<the connection was closed without an answer>"_s, {});
        row("not HTTP", "hello\r\n\r\n", u"<invalidResponse>"_s, {});
        row("cut off", "HTTP/1.1 200 OK\r\nContent-Length: 999\r\n\r\n" + list,
            u"<the connection was closed in the middle of the answer>"_s, {});
        row("cut off between chunks", "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n2\r\n{}\r\n",
            u"<the connection was closed in the middle of the answer>"_s, {});
        row("error cut off", "HTTP/1.1 500 Oh\r\nContent-Length: 999\r\n\r\n{}",
            u"<the connection was closed in the middle of the answer>"_s, {});
    }

    void answers()
    {
        QFETCH(QByteArray, bytes);
        ConsoleCapture capture;
        const TestServer server(TestServer::always(bytes));
        OpenAIService service(server.serviceUrl());
        QTEST(ask(service), "expected");
        QTEST(capture.lines().join(u'\n'), "console");
        QTest::qWait(20);
        QCOMPARE(server.requests().size(), 1);
    }

    void followsNoRedirect()
    {
        const TestServer other(TestServer::always(httpAnswer(emptyList)));
        const QByteArray location =
            "Location: http://127.0.0.1:" + QByteArray::number(other.port()) + "/\r\n";
        const TestServer server(
            TestServer::always(httpAnswer("over there", "307 Temporary Redirect", location)));
        OpenAIService service(server.serviceUrl());
        ConsoleCapture console;
        QCOMPARE(ask(service), u"<apiError(\"over there\")>"_s);
        QTest::qWait(50);
        QCOMPARE(other.requests().size(), 0);
    }

    void stopsEndlessAnswers()
    {
        const QByteArray start = "HTTP/1.1 200 OK\r\n";
        const QString tooSlow = u"<the service did not answer within 0.3 seconds>"_s;
        const std::tuple<QByteArray, QByteArray, HttpLimits, QString> cases[]{
            {{}, {}, {.time = 300ms}, tooSlow},
            {start + "X:", "x", {.time = 300ms}, tooSlow},
            {start + "\r\n", " ", {.time = 300ms}, tooSlow},
            {start + "\r\n",
             QByteArray(1'000'000, ' '),
             {},
             u"<the answer of the service is longer than 4194304 bytes>"_s},
        };
        for (const auto &[begin, chunk, limits, failure] : cases) {
            bool closed = false;
            const TestServer server(flood(begin, chunk, 5ms, &closed));
            OpenAIService service(server.serviceUrl(), limits);
            QElapsedTimer timer;
            timer.start();
            QCOMPARE(ask(service), failure);
            QVERIFY(timer.elapsed() >= 250 || failure != tooSlow);
            QVERIFY(timer.elapsed() < 5000 || failure != tooSlow);
            QTRY_VERIFY(closed);
        }
    }

    void readsNoMoreThanItKeeps_data()
    {
        const auto row = table<QByteArray, QByteArray, QString>({"start", "again", "failure"});
        const QByteArray chunk = "10000\r\n" + QByteArray(65536, 'x') + "\r\n";
        const QByteArray chunked = "Transfer-Encoding: chunked\r\n\r\n";
        const QString tooLong = u"<the answer of the service is longer than 4194304 bytes>"_s;
        row("chunks", "HTTP/1.1 200 OK\r\n" + chunked, chunk, tooLong);
        row("until closed", "HTTP/1.1 200 OK\r\n\r\n", chunk, tooLong);
        row("interim answers", {}, "HTTP/1.1 100 Continue\r\nX: y\r\n\r\n", u"<invalidResponse>"_s);
        row("one header", "HTTP/1.1 200 OK\r\nX: ", QByteArray(65536, 'x'),
            u"<the answer of the service is malformed>"_s);
        row("a refusal", "HTTP/1.1 500 Oh\r\n" + chunked, chunk,
            u"<apiError(\""_s + QString(64 << 10, u'x') + u"…\")>"_s);
    }

    /// A server that sends as fast as it can, in a thread of its own: what it gets rid of is what is read.
    void readsNoMoreThanItKeeps()
    {
        QFETCH(QByteArray, start);
        QFETCH(QByteArray, again);
        ConsoleCapture console;
        QTcpServer listener;
        QVERIFY(listener.listen(QHostAddress::LocalHost));
        listener.pauseAccepting();
        const int listening = static_cast<int>(listener.socketDescriptor());
        constexpr qint64 plenty = 256 << 20;
        qint64 sent = 0;
        std::jthread server([&] {
            pollfd caller{.fd = listening, .events = POLLIN, .revents = 0};
            ::poll(&caller, 1, -1);
            const int connection = ::accept(listening, nullptr, nullptr);
            const auto send = [&](const QByteArray &bytes) {
                const auto size = static_cast<size_t>(bytes.size());
                return ::send(connection, bytes.data(), size, MSG_NOSIGNAL) == bytes.size();
            };
            for (bool goesOn = send(start); goesOn && sent < plenty; sent += again.size())
                goesOn = send(again);
            ::close(connection);
        });
        OpenAIService service(u"http://127.0.0.1:%1/v1"_s.arg(listener.serverPort()));
        QTEST(ask(service), "failure");
        server.join();
        // The system's own buffers take some megabytes.
        QVERIFY2(sent < 32 << 20, qPrintable(QString::number(sent)));
    }

    void verifiesCertificates()
    {
        const QSslConfiguration tls = makeSelfSignedTls();
        // So large that it comes in pieces.
        const QByteArray list = "[{\"a\":\"" + QByteArray(4'000'000, 'x') + "\"}]";
        const TestServer server(TestServer::always(chatAnswer(list)), &tls);
        OpenAIService service(u"https://127.0.0.1:%1/v1"_s.arg(server.port()));
        QCOMPARE(ask(service),
                 u"<no secure connection could be made: The certificate is self-signed, and untrusted>"_s);
        QCOMPARE(server.requests().size(), 0);

        const QSslConfiguration usual = QSslConfiguration::defaultConfiguration();
        QSslConfiguration trusting = usual;
        trusting.addCaCertificate(tls.localCertificate());
        QSslConfiguration::setDefaultConfiguration(trusting);
        const qsizetype length = ask(service).size();
        QSslConfiguration::setDefaultConfiguration(usual);
        QCOMPARE(length, 4'000'000 + QByteArray("{\n  \"a\": \"\"\n}").size());
    }
};

QTEST_GUILESS_MAIN(TestOpenAIService)
#include "tst_openai_service.moc"
