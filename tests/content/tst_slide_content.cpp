#include "content/slide_content.h"
#include "content/slide_documents.h"
#include "tests/model/test_library.h"
#include "tests/table.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>

#include <clocale>

using namespace mosslantern;
using namespace Qt::StringLiterals;

using Entries = QList<SlideText>;
using Operation = QString (*)(const QString &);

class TestSlideContent : public QObject
{
    Q_OBJECT

private slots:
    void parses_data();
    void parses();
    void complains_data();
    void complains();
    void shippedDocuments();
    void rewrites_data();
    void rewrites();
    void prettyTextIsBounded();
    void updates();
    void largeTexts();
    void boundsTheSlides();
};

void TestSlideContent::parses_data()
{
    const auto row = table<QString, bool, Entries>({"content", "valid", "entries"});
    row("subtitles",
        QString::fromUtf8(
            R"({"slides":[{"main":"A"},{"subtitle":null,"main":"B"},{"main":"","subtitle":"c"}]})"),
        true, {{u"A"_s, {}}, {u"B"_s, {}}, {{}, u"c"_s}});
    row("no slides", u"{\"slides\":[]}"_s, true, {});
    row("others ignored, last counts", uR"({"x":{"slides":3,"y":[{}]},"slides":[{"main":"X"}],
        "slides":[{"main":"1","subtitle":"X","z":[{"main":2}],"main":"A","subtitle":null}]})"_s,
        true, {{u"A"_s, {}}});
    row("space around", u"\u2003\u0085 \r\n\t{\"slides\":[{\"main\":\" A\\n\"}]}\u00A0\u2029"_s, true,
        {{u" A\n"_s, {}}});
    row("escaped and raw", uR"({"slides":[{"main":"\ud83d\ude00😀","subtitle":"\ufeff\/"}]})"_s, true,
        {{u"😀😀"_s, u"\uFEFF/"_s}});
    row("lines", u"Hook\n\n  Payoff  "_s, false, {{u"Hook"_s, {}}, {u"Payoff"_s, {}}});
    row("horizontal space only", u"\t \u00A0\u1680\u2003\u202F\u205F\u3000a  b\u3000\t\n\u200B\n\u001F\r\n"_s,
        false, {{u"a  b"_s, {}}, {u"\u200B"_s, {}}, {u"\u001F"_s, {}}});
    row("empty", {}, false, {});
    row("array is plain text", u"[\n1]"_s, false, {{u"["_s, {}}, {u"1]"_s, {}}});
    row("byte order mark is text", u"\uFEFF{}"_s, false, {{u"\uFEFF{}"_s, {}}});
    const QString odd = u"a"_s + QChar(0) + QChar(0xD800);
    row("NUL and half a pair in text", odd, false, {{odd, {}}});
}

void TestSlideContent::parses()
{
    QFETCH(QString, content);
    ConsoleCapture console;
    QTEST(parseSlideContent(content), "entries");
    QTEST(isValidSlideContent(content), "valid");
    QCOMPARE(console.lines(), QStringList());
}

void TestSlideContent::complains_data()
{
    const auto row = table<QString, QString>({"content", "error"});
    row("trailing comma", u"\n {\"slides\":[{\"main\":\"A\"},]}"_s, u"line 1, column 25"_s);
    row("raw line break", u"{\"slides\":[{\"main\":\"A\nB\"}]}"_s,
        u"control character U+000A (LF) must be"_s);
    row("no slides", u"{\"Slides\":[]}"_s, u"the document: \"slides\" is missing"_s);
    row("slides of wrong type", u"{\"slides\":{}}"_s, u"slides: expected an array, found an object"_s);
    row("no main", u"{\"slides\":[{\"main\":\"\"},{\"subtitle\":\"x\"}]}"_s,
        u"slides[1]: \"main\" is missing"_s);
    row("null main", u"{\"slides\":[{\"main\":\"\"},{\"main\":null}]}"_s,
        u"slides[1].main: expected a string, found null"_s);
    row("wrong subtitle", u"{\"slides\":[{\"main\":\"\",\"subtitle\":5}]}"_s,
        u"slides[0].subtitle: expected a string or null, found a number"_s);
    row("no object", u"{\"slides\":[\"A\"]}"_s, u"slides[0]: expected an object, found a string"_s);
    row("number beyond a double", u"{\"slides\":[],\"x\":1e400}"_s, u"a number is too large"_s);
    row("half a pair", u"{\"slides\":[{\"main\":\""_s + QChar(0xDC00) + u"\"}]}"_s,
        u"the text holds half of a surrogate pair"_s);
    row("NUL behind", u"{\"slides\":[]}"_s + QChar(0) + u"}"_s, u"the text holds a NUL character"_s);
    row("too deep", u"{\"slides\":[],\"x\":"_s + u"["_s.repeated(512), u"nested more than 512 levels deep"_s);
    row("long token", u"{\"slides\":[{\"main\":\""_s + u"x"_s.repeated(100'000), u"missing closing quote"_s);
}

void TestSlideContent::complains()
{
    QFETCH(QString, content);
    QFETCH(QString, error);
    ConsoleCapture console;
    QVERIFY(!isValidSlideContent(content));
    QCOMPARE(parseSlideContent(content), Entries());
    QCOMPARE(updateSlideContent(content, 0, u"x"_s, {}), content);
    const QString message = SlideContentJSON::decode(content.trimmed()).error().message;
    QVERIFY2(message.contains(error) && message.size() < 200, qPrintable(message));
    QCOMPARE(console.lines(),
             QStringList({u"❌ JSON parsing error: "_s + message,
                          u"💡 Tip: Check for unescaped quotes, missing commas, or trailing commas"_s,
                          u"Failed to update JSON: "_s + message}));
}

void TestSlideContent::shippedDocuments()
{
    QCOMPARE(defaultSlideContent.size(), 89);
    QCOMPARE(exampleSlideContent.size(), 176);
    QCOMPARE(slideContentPlaceholder.size(), 126);
    QCOMPARE(parseSlideContent(defaultSlideContent.toString()), Entries({{u"Main Text"_s, u"Subtext"_s}}));
    QCOMPARE(parseSlideContent(exampleSlideContent.toString()),
             Entries({{u"First Slide"_s, u"Subtitle here"_s}, {u"Second Slide"_s, u"Another subtitle"_s}}));
    QCOMPARE(prettifySlideContent(exampleSlideContent.toString()), exampleSlideContent);
}

void TestSlideContent::rewrites_data()
{
    const auto add = table<Operation, QString, QString>({"operation", "text", "expected"});
    Operation operation = prettifySlideContent;
    const auto row = [&](const char *name, const QString &text, const QString &expected) {
        add(name, operation, text, expected);
    };
    row("order and repetition", uR"( {"b":1,"a":{"z":null},"b":[true,false]})"_s,
        u"{\n  \"b\": 1,\n  \"a\": {\n    \"z\": null\n  },\n  \"b\": [\n    true,\n    false\n  ]\n}"_s);
    row("empty inside", u"[[ ] ,{\n}]\n"_s, u"[\n  [],\n  {}\n]"_s);
    row("digits", u"[-0,1.0,0.10E+007,-9223372036854775808,18446744073709551615,12345678901234567890123]"_s,
        u"[\n  -0,\n  1.0,\n  0.10E+007,\n  -9223372036854775808,\n  18446744073709551615,\n"
        "  12345678901234567890123\n]"_s);
    row("escapes", uR"({"\"{":"a\/b\u00e9\ud83d\ude00\n\u0001\\"})"_s,
        u"{\n  \"\\\"{\": \"a/bé😀\\n\\u0001\\\\\"\n}"_s);
    for (const QString &text :
         {u"plain\n text"_s, u"\"text\""_s, u"12 "_s, u"{\"a\":1,}"_s, u"[1e400]"_s, QString(), u"\u00A0{}"_s,
          u"\uFEFF{}"_s, u"[] "_s + QChar(0), u"[\""_s + QChar(0xD800) + u"\" ]"_s})
        row(qPrintable(u"unchanged: "_s + text.simplified()), text, text);

    operation = fixNewlinesInStrings;
    row("inside", u"{\n\"a\":\"x\ny\",\r\n\"b\":\"\n\"\n}"_s, u"{\n\"a\":\"x\\ny\",\r\n\"b\":\"\\n\"\n}"_s);
    row("every break", u"\"\n\u000B\f\r\u0085\u2028\u2029\""_s, u"\"\\n\\n\\n\\n\\n\\n\\n\""_s);
    row("CR LF is one", u"\"\r\n\r\r\n\n\"\r\n"_s, u"\"\\n\\n\\n\\n\"\r\n"_s);
    row("escaped quote", u"\"a\\\"\n\"\n"_s, u"\"a\\\"\\n\"\n"_s);
    row("escaped backslash counts as escape", u"\"a\\\\\"\n\"\n"_s, u"\"a\\\\\"\\n\"\n"_s);
    row("marked quote is no quote", u"\"\u0301\n\"\n"_s, u"\"\u0301\n\"\\n"_s);
    row("marked backslash escapes nothing", u"\"\\\u0301\"\n"_s, u"\"\\\u0301\"\n"_s);
    row("quote after a prefix character", u"\u0600\"\n"_s, u"\u0600\"\n"_s);
    row("half pairs and NUL stay", u"\""_s + QChar(0xD800) + u"\n"_s + QChar(0) + QChar(0xDC00),
        u"\""_s + QChar(0xD800) + u"\\n"_s + QChar(0) + QChar(0xDC00));
    row("empty", QString(), QString());
}

void TestSlideContent::rewrites()
{
    QFETCH(Operation, operation);
    QFETCH(QString, text);
    QFETCH(QString, expected);
    ConsoleCapture console;
    QCOMPARE(operation(text), expected);
    QCOMPARE(operation(expected), expected);
    QCOMPARE(console.lines(), QStringList());
}

void TestSlideContent::prettyTextIsBounded()
{
    const auto nested = [](int depth, const QString &inner) {
        return u"["_s.repeated(depth) + inner + u"]"_s.repeated(depth);
    };
    QVERIFY(prettifySlideContent(nested(512, {})).size() > 512 * 512);
    QCOMPARE(prettifySlideContent(nested(513, {})), nested(513, {}));
    const QString tooLong = nested(500, u"0"_s + u",0"_s.repeated(100'000));
    QCOMPARE(prettifySlideContent(tooLong), tooLong);

    // Whatever the locale writes between the digits.
    const QTemporaryDir folder;
    const QString locale = folder.filePath(u"de"_s);
    if (QProcess::execute(u"localedef"_s, {u"-i"_s, u"de_DE"_s, u"-f"_s, u"UTF-8"_s, locale}) != 0)
        QSKIP("no localedef");
    qputenv("LOCPATH", folder.path().toLocal8Bit());
    QVERIFY(std::setlocale(LC_NUMERIC, "de"));
    const QString pretty = prettifySlideContent(u"[1.5]"_s);
    std::setlocale(LC_NUMERIC, "C");
    QCOMPARE(pretty, u"[\n  1.5\n]"_s);
}

void TestSlideContent::updates()
{
    const QString standard = defaultSlideContent.toString();
    const auto document = [](const QString &entries) {
        return u"{\n  \"slides\": [\n    {\n      "_s + entries + u"\n    }\n  ]\n}"_s;
    };
    ConsoleCapture console;
    QCOMPARE(updateSlideContent(standard, 0, u"N/\"é\n"_s, {}),
             document(u"\"main\": \"N/\\\"é\\n\",\n      \"subtitle\": \"Subtext\""_s));
    QCOMPARE(updateSlideContent(standard, 0, {}, QString()),
             document(u"\"main\": \"Main Text\",\n      \"subtitle\": \"\""_s));
    const QString two = uR"( {"x":1,"slides":[{"main":"A","y":2},{"main":"B","subtitle":null}]} )"_s;
    QCOMPARE(
        updateSlideContent(two, 1, {}, u"s"_s),
        document(u"\"main\": \"A\"\n    },\n    {\n      \"main\": \"B\",\n      \"subtitle\": \"s\""_s));
    for (const qsizetype outside : {-1, 1})
        QCOMPARE(updateSlideContent(standard, outside, u"N"_s, {}), standard);
    QCOMPARE(updateSlideContent(u"A\nB"_s, 0, u"N"_s, {}), u"A\nB"_s);
    QCOMPARE(console.lines(), QStringList());
    QCOMPARE(updateSlideContent(standard, 0, {}, QString(QChar(0xD83D))), standard);
    QCOMPARE(console.lines(),
             QStringList{u"Failed to update JSON: the text holds half of a surrogate pair"_s});
}

void TestSlideContent::largeTexts()
{
    const qsizetype count = 100'000;
    const QString entry = u"{\"main\":\"M é\\n"_s + QString(80, u'm') + u"\",\"subtitle\":\"😀\"},\n"_s;
    const QString document = u"{\"slides\":[\n"_s + entry.repeated(count).chopped(2) + u"]}"_s;
    QVERIFY(document.toUtf8().size() > 10'000'000);
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(parseSlideContent(document).size(), count);
    QVERIFY(isValidSlideContent(document));
    QVERIFY(prettifySlideContent(document).size() > document.size());
    QCOMPARE(fixNewlinesInStrings(document), document);
    QVERIFY(updateSlideContent(document, count - 1, u"last"_s, {}).contains(u"last"_s));
    QCOMPARE(parseSlideContent((u"a\u3000\n"_s + u" \n"_s.repeated(30)).repeated(count)).size(), count);
    // They take about a second together; what grows with the square of the length would take hours.
    QVERIFY2(timer.elapsed() < 30000, qPrintable(u"%1 ms"_s.arg(timer.elapsed())));
}

void TestSlideContent::boundsTheSlides()
{
    const auto lines = [](qsizetype count) { return u"\n a\r\n"_s.repeated(count); };
    const auto document = [](qsizetype count) {
        return u"{\"slides\":["_s + u"{\"main\":\"\"},"_s.repeated(count - 1) + u"{\"main\":\"b\"}]}"_s;
    };
    for (const std::function<QString(qsizetype)> &content :
         {std::function<QString(qsizetype)>(lines), {document}}) {
        QCOMPARE(readSlideContent(content(mostSlides))->size(), mostSlides);
        const auto refused = readSlideContent(content(mostSlides + 1));
        QVERIFY(!refused);
        QCOMPARE(refused.error().message, u"the content has more than 100000 slides"_s);
        QVERIFY(!isValidSlideContent(content(mostSlides + 1)));
    }
}

QTEST_APPLESS_MAIN(TestSlideContent)
#include "tst_slide_content.moc"
