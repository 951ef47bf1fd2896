#include "content/openai_answer.h"
#include "tests/model/test_library.h"

#include <QtTest/QTest>

#include <nlohmann/json.hpp>

#include <random>

using namespace mosslantern;
using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(mosslantern::OpenAIFailure)

namespace {

QByteArray bodyWith(const QString &content)
{
    const nlohmann::json body{
        {"id", "x"},
        {"choices",
         {{{"index", 0}, {"message", {{"role", "assistant"}, {"content", content.toStdString()}}}},
          {{"message", {{"content", "not read"}}}}}}};
    return QByteArray::fromStdString(body.dump());
}

/// The list, or the failure in angle brackets.
QStringList shown(const std::expected<QStringList, OpenAIFailure> &variations)
{
    return variations ? *variations : QStringList{u'<' + describe(variations.error()) + u'>'};
}

} // namespace

class TestOpenAIAnswer : public QObject
{
    Q_OBJECT

private slots:
    void readsContent_data();
    void readsContent();
    void readsAnswers_data();
    void readsAnswers();
    void halfPairIsNoText();
    void leavesOutKey();
    void boundsVariations();
    void survivesAnything();
};

void TestOpenAIAnswer::readsContent_data()
{
    QTest::addColumn<QString>("content");
    QTest::addColumn<QStringList>("expected");

    const QString list = uR"([{"slides":[]},{"b":1.0,"a":[12345678901234567890123,null,{}]}])"_s;
    const QStringList two{
        u"{\n  \"slides\": []\n}"_s,
        u"{\n  \"b\": 1.0,\n  \"a\": [\n    12345678901234567890123,\n    null,\n    {}\n  ]\n}"_s};
    const QStringList parseFailure{u"<expected a value at line 1, column 1>"_s};
    QTest::newRow("bare") << list << two;
    QTest::newRow("json fence") << u"```json\n"_s + list + u"\n```"_s << two;
    QTest::newRow("plain fence, space inside") << u"``` \u2003\n"_s + list + u"\r\n\t```"_s << two;
    QTest::newRow("opening fence only") << u"```json"_s + list << two;
    QTest::newRow("closing fence only") << list + u"```"_s << two;
    QTest::newRow("space around") << u" \n"_s + list + u"\u00A0\n"_s << two;
    QTest::newRow("empty list") << u"```[]```"_s << QStringList();
    QTest::newRow("space before the fence") << u" ```json\n[]\n```"_s << parseFailure;
    QTest::newRow("line break after the fence")
        << u"```json\n[]\n```\n"_s
        << QStringList{u"<unexpected text after the end of the document at line 2, column 1>"_s};
    QTest::newRow("upper-case fence") << u"```JSON\n[]```"_s << parseFailure;
    QTest::newRow("four backquotes") << u"````[]```"_s << parseFailure;
    QTest::newRow("fence only")
        << u"```"_s << QStringList{u"<expected a value, found the end of the text at line 1, column 1>"_s};
    QTest::newRow("prose") << u"Here you are: []"_s << parseFailure;
    for (const QString &other :
         {u"{\"slides\":[]}"_s, u"[{},1]"_s, u"[\"x\"]"_s, u"[[]]"_s, u"12"_s, u"[null]"_s})
        QTest::addRow("no list of objects: %s", qPrintable(other))
            << other << QStringList{u"<decodingError>"_s};
}

void TestOpenAIAnswer::readsContent()
{
    QFETCH(QString, content);
    QFETCH(QStringList, expected);
    ConsoleCapture console;
    QCOMPARE(shown(readVariations({200, bodyWith(content)}, u"sk-secret"_s)), expected);
    QCOMPARE(console.lines(), QStringList());
}

void TestOpenAIAnswer::readsAnswers_data()
{
    QTest::addColumn<int>("status");
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<QString>("failure");
    QTest::addColumn<QString>("console");

    const auto row = [](const char *name, int status, const QByteArray &body, const QString &failure,
                        const QString &console = {}) {
        QTest::newRow(name) << status << body << failure << console;
    };
    row("not HTTP", 0, "x", u"invalidResponse"_s);
    row("refused", 401, "{\"error\":\n\"é\"}", u"apiError(\"{\"error\":\n\"é\"}\")"_s,
        u"OpenAI API Error: {\"error\":\n\"é\"}"_s);
    row("refused without a word", 500, {}, u"apiError(\"\")"_s, u"OpenAI API Error: "_s);
    row("byte order mark stays", 404, "\xEF\xBB\xBFx", u"apiError(\"\uFEFFx\")"_s,
        u"OpenAI API Error: \uFEFFx"_s);
    row("refused in no UTF-8", 503, "\xFF", u"apiError(\"Status code: 503\")"_s);
    row("redirected", 300, "there", u"apiError(\"there\")"_s, u"OpenAI API Error: there"_s);
    row("still going on", 199, "x", u"apiError(\"x\")"_s, u"OpenAI API Error: x"_s);
    row("nothing", 204, {}, u"expected a value, found the end of the text at line 1, column 1"_s);
    row("not UTF-8", 200, "\"\xFF\"", u"the text is not valid UTF-8"_s);
    row("no choices", 200, "{\"choices\":[]}", u"invalidResponse"_s);
    row("choices missing", 200, "{}", u"\"choices\" is missing"_s);
    row("choices null", 200, "{\"choices\":null}", u"choices: expected an array, found null"_s);
    row("an array", 200, "[]", u"expected an object with \"choices\", found an array"_s);
    row("message missing", 200, "{\"choices\":[{}]}", u"\"message\" is missing"_s);
    row("message null", 200, "{\"choices\":[{\"message\":null}]}",
        u"message: expected an object, found null"_s);
    row("later content null", 200,
        "{\"choices\":[{\"message\":{\"content\":\"[]\"}},{\"message\":{\"content\":null}}]}",
        u"content: expected a string, found null"_s);
}

void TestOpenAIAnswer::readsAnswers()
{
    QFETCH(int, status);
    QFETCH(QByteArray, body);
    QFETCH(QString, failure);
    QFETCH(QString, console);
    ConsoleCapture capture;
    QCOMPARE(shown(readVariations({status, body}, u"sk-secret"_s)), QStringList{u'<' + failure + u'>'});
    QCOMPARE(capture.lines().join(u'\n'), console);
}

void TestOpenAIAnswer::halfPairIsNoText()
{
    QCOMPARE(shown(readVariationList(u"[\""_s + QChar(0xDC00) + u"\"]"_s)),
             QStringList{u"<decodingError>"_s});
}

void TestOpenAIAnswer::leavesOutKey()
{
    ConsoleCapture console;
    const auto answer = readVariations({401, "Wrong key sk-secret!"}, u"sk-secret "_s);
    QCOMPARE(answer.error(),
             OpenAIFailure(OpenAIError{OpenAIError::Case::apiError, u"Wrong key [API key]!"_s}));
    QCOMPARE(console.lines(), QStringList{u"OpenAI API Error: Wrong key [API key]!"_s});
    QCOMPARE(shown(readVariations({401, "a b"}, u"a"_s)), QStringList{u"<apiError(\"a b\")>"_s});
}

void TestOpenAIAnswer::boundsVariations()
{
    const auto empties = [](qsizetype count) { return u"["_s + u"{},"_s.repeated(count - 1) + u"{}]"_s; };
    QCOMPARE(readVariationList(empties(65536))->size(), 65536);
    QVERIFY(!readVariationList(empties(65537)));
}

void TestOpenAIAnswer::survivesAnything()
{
    std::mt19937 random(3);
    const auto pick = [&random](qsizetype n) {
        return std::uniform_int_distribution<qsizetype>(0, n - 1)(random);
    };
    const QByteArray whole =
        bodyWith(u"```json\n[{\"slides\":[{\"main\":\"é\\n😀\"}]},{\"a\":[[1e9,{}]]}]\n```"_s);
    const QByteArray pieces = "`[]{}\",:\\u0 \n\xC3\xA9\x00";
    ConsoleCapture console;
    int lists = 0;
    for (int round = 0; round < 200'000; ++round) {
        QByteArray body = whole;
        for (qsizetype mutations = 1 + pick(3); mutations > 0; --mutations) {
            const qsizetype at = pick(body.size());
            switch (pick(3)) {
            case 0:
                body.insert(at, pieces[pick(pieces.size())]);
                break;
            case 1:
                body.remove(at, 1 + pick(12));
                break;
            default:
                body[at] = pieces[pick(pieces.size())];
                break;
            }
        }
        const auto variations = readVariations({pick(20) == 0 ? 400 : 200, body}, u"sk-secret"_s);
        lists += variations.has_value();
        for (const QString &text : variations.value_or(QStringList()))
            QVERIFY2(nlohmann::json::accept(text.toStdString()), body.constData());
    }
    QVERIFY(lists > 1000 && lists < 199'000);
}

QTEST_APPLESS_MAIN(TestOpenAIAnswer)
#include "tst_openai_answer.moc"
