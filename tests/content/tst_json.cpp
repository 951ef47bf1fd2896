#include "content/json.h"

#include <QtCore/QElapsedTimer>
#include <QtTest/QTest>

#include <nlohmann/json.hpp>

#include <random>

using namespace mosslantern;
using namespace Qt::StringLiterals;

class TestJson : public QObject
{
    Q_OBJECT

private slots:
    void prettyPrints_data();
    void prettyPrints();
    void refuses_data();
    void refuses();
    void readsStrings();
    void lastOfRepeatedMembersCounts();
    void boundsDepth();
    void agreesWithNlohmann();
    void hostileTextsStayCheap_data();
    void hostileTextsStayCheap();
    void boundsPrettyText();
};

void TestJson::prettyPrints_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("expected");

    QTest::newRow("empty object") << "{ }"_ba
                                  << "{}"_ba;
    QTest::newRow("empty array inside") << " [[ ] ,{\n}]\n"_ba
                                        << "[\n  [],\n  {}\n]"_ba;
    QTest::newRow("order and repetition") << R"({"b":1,"a":{"z":null},"b":[true,false]})"_ba
                                          << "{\n  \"b\": 1,\n  \"a\": {\n    \"z\": null\n  },\n"
                                             "  \"b\": [\n    true,\n    false\n  ]\n}"_ba;
    QTest::newRow("digits") << "[1.0,1e400,-0,12345678901234567890123,0.10E+007]"_ba
                            << "[\n  1.0,\n  1e400,\n  -0,\n  12345678901234567890123,\n  0.10E+007\n]"_ba;
    QTest::newRow("brackets in strings") << R"({"]{,:":"[\"}"})"_ba
                                         << "{\n  \"]{,:\": \"[\\\"}\"\n}"_ba;
    QTest::newRow("escapes") << R"(["a\/b\u00e9\ud83d\ude00\n\u0001\\"])"_ba
                             << "[\n  \"a/bé😀\\n\\u0001\\\\\"\n]"_ba;
    QTest::newRow("scalar") << " \"x\" "_ba
                            << "\"x\""_ba;
}

void TestJson::prettyPrints()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, expected);
    const Result<JsonValue> value = JsonValue::parse(text);
    QVERIFY2(value, qPrintable(value ? QString() : value.error().message));
    QCOMPARE(*prettyJson(*value), expected);
    QCOMPARE(*prettyJson(*JsonValue::parse(expected)), expected);
}

void TestJson::refuses_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("message");

    const auto row = [](const char *name, const QByteArray &text, const QString &message) {
        QTest::newRow(name) << text << message;
    };
    row("nothing", " \n", u"expected a value, found the end of the text at line 2, column 1"_s);
    row("trailing comma", "{\"a\":\n [\"é\",]}", u"expected a value at line 2, column 7"_s);
    row("no comma", "[1 2]", u"expected \",\" or \"]\" at line 1, column 4"_s);
    row("no colon", "{\"a\" 1}", u"expected \":\" at line 1, column 6"_s);
    row("bare name", "{a:1}", u"expected a member name in double quotes at line 1, column 2"_s);
    row("comment", "[] // x", u"unexpected text after the end of the document at line 1, column 4"_s);
    row("raw line break", "\n[\"a\nb\"]", u"line break inside a string at line 2, column 4"_s);
    row("raw NUL", "[\"a\0\"]"_ba, u"control character inside a string at line 1, column 4"_s);
    row("open string", "[\"a",
        u"expected a closing double quote, found the end of the text at line 1, column 4"_s);
    row("escape", "[\"\\q\"]",
        u"expected one of the characters \" \\ / b f n r t u after a backslash at line 1, column 4"_s);
    row("short escape", "[\"\\u00e\"]", u"expected four hexadecimal digits after \\u at line 1, column 5"_s);
    row("high surrogate", "[\"\\ud800\"]", u"half of a surrogate pair at line 1, column 3"_s);
    row("low surrogate", "[\"\\udc00\"]", u"half of a surrogate pair at line 1, column 3"_s);
    row("byte order mark", "\xEF\xBB\xBF{}", u"expected a value at line 1, column 1"_s);
    row("not UTF-8", "[\"\xFF\"]", u"the text is not valid UTF-8"_s);
    for (const char *text :
         {"01", "1.", ".5", "+1", "1e", "-", "0x1", "NaN", "True", "nul", "'a'", "[", "{\"a\":"})
        row(text, text, {});
}

void TestJson::refuses()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, message);
    const Result<JsonValue> value = JsonValue::parse(text);
    QVERIFY(!value);
    if (!message.isEmpty())
        QCOMPARE(value.error().message, message);
}

void TestJson::readsStrings()
{
    const QByteArray text = R"(["\u0000x\"\\\/\b\f\n\r\t", "\ufeffé\uD83D\uDe00", ""])";
    QStringList strings;
    const Result<JsonValue> value = JsonValue::parse(text);
    for (const JsonChild &child : value->children())
        strings += child.value.text();
    QCOMPARE(strings, QStringList({QString(QChar(0)) + u"x\"\\/\b\f\n\r\t"_s, u"\uFEFFé😀"_s, QString()}));
}

void TestJson::lastOfRepeatedMembersCounts()
{
    const QByteArray text = R"({"a":1, "b":2, "\u0061":3, "A":4})";
    const Result<JsonValue> value = JsonValue::parse(text);
    QCOMPARE(value->member("a"_L1)->source(), "3"_ba);
    QVERIFY(!value->member("c"_L1));
}

void TestJson::boundsDepth()
{
    const auto nested = [](int depth) { return QByteArray(depth, '[') + QByteArray(depth, ']'); };
    const QByteArray deepest = nested(JsonValue::maxDepth);
    QVERIFY(JsonValue::parse(deepest));
    QCOMPARE(JsonValue::parse(nested(JsonValue::maxDepth + 1)).error().message,
             u"nested more than 512 levels deep at line 1, column 513"_s);
}

namespace {

QByteArray randomJson(std::mt19937 &random, int depth)
{
    static const QByteArray scalars[]{
        "0", "-1.5e3", "true", "null", "\"\"", "\"a\\n\\u00e9\"", "\"\\ud83d\\ude00é😀\"", "[]", "{}", "12"};
    const auto pick = [&random](size_t n) { return std::uniform_int_distribution<size_t>(0, n - 1)(random); };
    if (depth == 0 || pick(4) == 0)
        return scalars[pick(std::size(scalars))];
    const bool object = pick(2) == 0;
    QByteArrayList children;
    for (size_t i = pick(4); i > 0; --i)
        children += (object ? "\"" + QByteArray::number(int(i)) + "\": " : QByteArray()) +
                    randomJson(random, depth - 1);
    return (object ? '{' : '[') + children.join(pick(2) == 0 ? "," : " ,\n") + (object ? '}' : ']');
}

/// Nothing when nlohmann refuses `text` only for a number beyond a double.
std::optional<bool> acceptedByNlohmann(const QByteArray &text)
{
    try {
        return !nlohmann::json::parse(text.begin(), text.end()).is_discarded();
    } catch (const nlohmann::json::out_of_range &) {
        return std::nullopt;
    } catch (const nlohmann::json::exception &) {
        return false;
    }
}

} // namespace

void TestJson::agreesWithNlohmann()
{
    std::mt19937 random(20261118);
    const QByteArray alphabet = "{}[],:\"\\/ue+-.019tfnrls \n\t\x01\x7F\xC3\xA9\xF0\x9F\x98\x80\xED\xA0";
    const auto pick = [&random](qsizetype n) {
        return std::uniform_int_distribution<qsizetype>(0, n - 1)(random);
    };
    int accepted = 0;
    int refused = 0;
    for (int round = 0; round < 60000; ++round) {
        QByteArray text = randomJson(random, 4);
        for (qsizetype mutations = pick(3); mutations > 0; --mutations) {
            const qsizetype at = pick(text.size());
            if (pick(2) == 0)
                text.insert(at, alphabet[pick(alphabet.size())]);
            else
                text.remove(at, 1 + pick(2));
            if (text.isEmpty())
                text = "0";
        }
        const std::optional<bool> reference = acceptedByNlohmann(text);
        if (!reference)
            continue;
        const Result<JsonValue> value = JsonValue::parse(text);
        QVERIFY2(value.has_value() == *reference, text.constData());
        if (value) {
            ++accepted;
            const QByteArray pretty = *prettyJson(*value);
            QVERIFY2(nlohmann::json::parse(pretty.begin(), pretty.end()) ==
                         nlohmann::json::parse(text.begin(), text.end()),
                     text.constData());
        } else {
            ++refused;
        }
    }
    QVERIFY(accepted > 10000 && refused > 10000);
}

void TestJson::hostileTextsStayCheap_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<bool>("valid");

    const qsizetype size = 10'000'000;
    const QByteArray deep(JsonValue::maxDepth - 1, '[');
    const QByteArray shallow(JsonValue::maxDepth - 1, ']');
    QTest::newRow("brackets") << QByteArray(size, '[') << false;
    QTest::newRow("one string") << '"' + QByteArray(size, 'x') + '"' << true;
    QTest::newRow("escapes") << '"' + QByteArray("\\n").repeated(size / 2) + '"' << true;
    QTest::newRow("repeated members") << "{" + QByteArray("\"a\":0,").repeated(size / 6) + "\"a\":1}" << true;
    QTest::newRow("one long number") << QByteArray(size, '9') << true;
    QTest::newRow("long string deep inside") << deep + '"' + QByteArray(size, 'x') + '"' + shallow << true;
}

void TestJson::hostileTextsStayCheap()
{
    QFETCH(QByteArray, text);
    QFETCH(bool, valid);
    QElapsedTimer timer;
    timer.start();
    const Result<JsonValue> value = JsonValue::parse(text);
    QCOMPARE(value.has_value(), valid);
    if (value)
        QVERIFY(prettyJson(*value).has_value());
    // Far above what any machine needs for work in proportion to the length, far below the square of it.
    QVERIFY2(timer.elapsed() < 10000, qPrintable(u"%1 ms"_s.arg(timer.elapsed())));
}

void TestJson::boundsPrettyText()
{
    const QByteArray text =
        QByteArray(500, '[') + "0" + QByteArray(",0").repeated(1'000'000) + QByteArray(500, ']');
    QCOMPARE(prettyJson(*JsonValue::parse(text)).error().message,
             u"written out, the JSON text would be longer than 67108864 bytes"_s);
    QCOMPARE(*prettyJson(*JsonValue::parse("[1]"), 7), "[\n  1\n]"_ba);
    QVERIFY(!prettyJson(*JsonValue::parse("[1]"), 6));
}

QTEST_APPLESS_MAIN(TestJson)
#include "tst_json.moc"
