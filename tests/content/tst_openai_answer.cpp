#include "content/openai_answer.h"
#include "content/secret.h"
#include "tests/model/test_library.h"
#include "tests/table.h"

#include <QtCore/QRegularExpression>

#include <nlohmann/json.hpp>

using namespace mosslantern;
using namespace Qt::StringLiterals;

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
    void leavesOutKey();
    void cutsAndCleansRefusals();
    void explainsFailures_data();
    void explainsFailures();
    void boundsVariations();
};

void TestOpenAIAnswer::readsContent_data()
{
    const auto row = table<QString, QStringList>({"content", "expected"});
    const QString list = uR"([{"slides":[]},{"b":1.0,"a":[[{"c":"]"}],null,{}]}])"_s;
    const QStringList two{
        u"{\n  \"slides\": []\n}"_s,
        u"{\n  \"b\": 1.0,\n  \"a\": [\n    [\n      {\n        \"c\": \"]\"\n      }\n    ],\n"
        "    null,\n    {}\n  ]\n}"_s};
    const QStringList parseFailure{u"<JSON>"_s};
    row("bare", list, two);
    row("json fence", u"```json\n"_s + list + u"\n```"_s, two);
    row("plain fence, space inside", u"``` \u2003\n"_s + list + u"\r\n\t```"_s, two);
    row("opening fence only", u"```json"_s + list, two);
    row("closing fence only", list + u"```"_s, two);
    row("space around", u" \n"_s + list + u"\u00A0\n"_s, two);
    row("empty list", u"```[]```"_s, {});
    row("space before the fence", u" ```json\n[]\n```"_s, parseFailure);
    row("line break after the fence", u"```json\n[]\n```\n"_s, parseFailure);
    row("upper-case fence", u"```JSON\n[]```"_s, parseFailure);
    row("fence only", u"```"_s, parseFailure);
    row("broken behind what is no object", u"[1, {\"a\":"_s, parseFailure);
    for (const char *other :
         {"{\"slides\":[]}", "[{},1]", "[\"x\",{}]", "[[{}]]", "12", "[null]", "{\"a\":[{}]}"})
        row(other, QString::fromLatin1(other), {u"<decodingError>"_s});
}

void TestOpenAIAnswer::readsContent()
{
    QFETCH(QString, content);
    ConsoleCapture console;
    QStringList actual = shown(readVariations({200, bodyWith(content)}, u"sk-secret"_s));
    actual.replaceInStrings(QRegularExpression(u"<parse error.*"_s), u"<JSON>"_s);
    QTEST(actual, "expected");
    QCOMPARE(console.lines(), QStringList());
}

void TestOpenAIAnswer::readsAnswers_data()
{
    const auto row = table<int, QByteArray, QString, QString>({"status", "body", "failure", "console"});
    row("not HTTP", 0, "x", u"invalidResponse"_s, {});
    row("refused", 401, "{\"error\":\n\"é\"}", u"apiError(\"{\"error\":\n\"é\"}\")"_s,
        u"OpenAI API Error: {\"error\":\n\"é\"}"_s);
    row("refused without a word", 500, {}, u"apiError(\"\")"_s, u"OpenAI API Error: "_s);
    row("refused in no UTF-8", 503, "\xFF", u"apiError(\"Status code: 503\")"_s, {});
    row("redirected", 300, "there", u"apiError(\"there\")"_s, u"OpenAI API Error: there"_s);
    row("nothing", 204, {}, u"parse error at line 1, column 1: "_s, {});
    row("not UTF-8", 299, "\"\xFF\"", u"parse error at line 1, column 2: "_s, {});
    row("no choices", 200, "{\"choices\":[]}", u"invalidResponse"_s, {});
    row("choices missing", 200, "{}", u"the document: \"choices\" is missing"_s, {});
    row("choices null", 200, "{\"choices\":null}", u"choices: expected an array, found null"_s, {});
    row("an array", 200, "[]", u"the document: expected an object, found an array"_s, {});
    row("message missing", 200, "{\"choices\":[{\"content\":\"\"}]}", u"choices[0]: \"message\" is missing"_s,
        {});
    row("content null in a later choice", 200,
        R"({"choices":[{"message":{"content":"[]"}},{"message":{"content":null}}]})",
        u"choices[1].message.content: expected a string, found null"_s, {});
    row("content missing in the last of two messages", 200,
        R"({"choices":[{"message":{"content":"[]"},"message":{}}]})",
        u"choices[0].message: \"content\" is missing"_s, {});
}

void TestOpenAIAnswer::readsAnswers()
{
    QFETCH(int, status);
    QFETCH(QByteArray, body);
    QFETCH(QString, failure);
    ConsoleCapture capture;
    const QString actual = shown(readVariations({status, body}, u"sk-secret"_s)).join(u'|');
    QVERIFY2(actual.startsWith(u'<' + failure), qPrintable(actual));
    QTEST(capture.lines().join(u'\n'), "console");
}

void TestOpenAIAnswer::leavesOutKey()
{
    ConsoleCapture console;
    const auto answer = readVariations({401, "Wrong key sk-secret!"}, u"sk-secret "_s);
    QCOMPARE(answer.error(),
             OpenAIFailure(OpenAIError{OpenAIError::Case::apiError, u"Wrong key [API key]!"_s, 401}));
    QCOMPARE(console.lines(), QStringList{u"OpenAI API Error: Wrong key [API key]!"_s});
    QCOMPARE(shown(readVariations({401, "a b"}, u"a"_s)), QStringList{u"<apiError(\"a b\")>"_s});

    const QByteArray key = "sk-\"secret\"/päß+1";
    const QByteArray forms[]{R"(sk-\"secret\"/päß+1)",
                             R"(sk-\"secret\"\/päß+1)",
                             R"(\u0073\u006B-\\"secret\u0022\\/p\u00e4\u00DF+1)",
                             "s%6b-%22secret\"/päß+1",
                             QUrl::toPercentEncoding(QString::fromUtf8(key)),
                             QUrl::toPercentEncoding(QString::fromUtf8(key)).toLower()};
    for (const QByteArray &form : forms)
        QCOMPARE(withoutSecret(u"<"_s + QString::fromUtf8(form) + u">"_s, QString::fromUtf8(key)),
                 u"<[API key]>"_s);
    for (int before = 0; before < 4; ++before) {
        const QByteArray coded = (QByteArray("Bearer").left(before) + key + ":x").toBase64();
        const QString masked = withoutSecret(QString::fromLatin1(coded), QString::fromUtf8(key));
        QVERIFY2(masked.contains("[API key]"_L1) && masked.size() < 9 + 9, qPrintable(masked));
    }
}

void TestOpenAIAnswer::cutsAndCleansRefusals()
{
    ConsoleCapture console;
    const QByteArray body = "\x1b]0;title\x07"
                            "a\x1b[31mred\x1b[0m\xc2\x9b"
                            "2Jb\x08\r\n\tc" +
                            QByteArray(200'000, 'x');
    const auto failure = readVariations({500, body}, u"sk-secret"_s).error();
    const QString text = std::get<OpenAIError>(failure).text;
    QVERIFY(text.startsWith(u"aredb\n\tcxxx"_s));
    QCOMPARE(text.size(), (64 << 10) + 1);
    QVERIFY(console.lines().join(u'\n').size() < 70'000);
}

void TestOpenAIAnswer::explainsFailures_data()
{
    const auto row = table<int, QByteArray, QString>({"status", "body", "sentence"});
    row("a reason", 401, R"({"error":{"code":1,"message":"Incorrect\nkey"}})",
        u"the service refused with status 401: Incorrect key"_s);
    row("no JSON", 502, "<h1>Bad gateway</h1>\nmore",
        u"the service refused with status 502: <h1>Bad gateway</h1>"_s);
    row("nothing", 500, {}, u"the service refused with status 500"_s);
    row("a long one", 500, QByteArray(1000, 'x'),
        u"the service refused with status 500: "_s + QString(300, u'x') + u'…');
    row("prose", 200, bodyWith(u"Sure! Here is your list: []"_s),
        u"the service answered in prose instead of a list"_s);
    row("no list", 200, bodyWith(u"{}"_s),
        u"the service answered with something else than a list of objects"_s);
    row("no choices", 200, R"({"choices":[]})", u"the service gave no answer that can be used"_s);
}

void TestOpenAIAnswer::explainsFailures()
{
    QFETCH(int, status);
    QFETCH(QByteArray, body);
    ConsoleCapture capture;
    QTEST(explain(readVariations({status, body}, u"sk-secret"_s).error()), "sentence");
}

void TestOpenAIAnswer::boundsVariations()
{
    const auto empties = [](qsizetype count) { return u"["_s + u"{},"_s.repeated(count - 1) + u"{}]"_s; };
    QCOMPARE(readVariationList(empties(65536))->size(), 65536);
    QVERIFY(!readVariationList(empties(65537)));
    QCOMPARE(shown(readVariationList(u"[\""_s + QChar(0xDC00) + u"\"]"_s)),
             QStringList{u"<decodingError>"_s});
}

QTEST_APPLESS_MAIN(TestOpenAIAnswer)
#include "tst_openai_answer.moc"
