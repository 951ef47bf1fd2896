#include "content/slide_content.h"
#include "content/slide_documents.h"
#include "tests/model/test_library.h"

#include <QtCore/QElapsedTimer>
#include <QtTest/QTest>

#include <unicode/brkiter.h>

#include <memory>
#include <random>

using namespace mosslantern;
using namespace Qt::StringLiterals;

using Entries = QList<SlideText>;

namespace {

/// The rules as they are told: one user-perceived character after the other, found by ICU.
QString fixNewlinesCharacterByCharacter(const QString &text)
{
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::BreakIterator> boundaries(
        icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
    boundaries->setText(
        icu::UnicodeString(false, reinterpret_cast<const char16_t *>(text.utf16()), int(text.size())));
    QString result;
    QString previous;
    bool insideString = false;
    for (int start = boundaries->first(), end = boundaries->next(); end != icu::BreakIterator::DONE;
         start = end, end = boundaries->next()) {
        const QString character = text.sliced(start, end - start);
        if (character == u"\"" && previous != u"\\")
            insideString = !insideString;
        result +=
            insideString && u"\n\u000B\f\r\u0085\u2028\u2029"_s.contains(character[0]) ? u"\\n"_s : character;
        previous = character;
    }
    return result;
}

} // namespace

class TestSlideContent : public QObject
{
    Q_OBJECT

private slots:
    void parses_data();
    void parses();
    void complains_data();
    void complains();
    void shippedDocuments();
    void prettifies_data();
    void prettifies();
    void fixesNewlines_data();
    void fixesNewlines();
    void fixesNewlinesCharacterByCharacter();
    void fixedDocumentDecodes();
    void updates_data();
    void updates();
    void complainsOfUpdates();
    void largeTexts();
};

void TestSlideContent::parses_data()
{
    QTest::addColumn<QString>("content");
    QTest::addColumn<bool>("valid");
    QTest::addColumn<Entries>("entries");

    QTest::newRow("subtitles")
        << uR"({"slides":[{"main":"A"},{"subtitle":null,"main":"B"},{"main":"","subtitle":"c"}]})"_s << true
        << Entries{{u"A"_s, {}}, {u"B"_s, {}}, {{}, u"c"_s}};
    QTest::newRow("no slides") << u"{\"slides\":[]}"_s << true << Entries{};
    QTest::newRow("others ignored, last counts")
        << uR"({"x":{"slides":3},"slides":7,"slides":[{"main":1,"main":"A","n":1e400}]})"_s << true
        << Entries{{u"A"_s, {}}};
    QTest::newRow("space around") << u"\u2003\u0085 \r\n\t{\"slides\":[{\"main\":\" A\\n\"}]}\u00A0\u2029"_s
                                  << true << Entries{{u" A\n"_s, {}}};
    QTest::newRow("escaped and raw") << uR"({"slides":[{"main":"\ud83d\ude00😀","subtitle":"\ufeff\/"}]})"_s
                                     << true << Entries{{u"😀😀"_s, u"\uFEFF/"_s}};

    QTest::newRow("lines") << u"Hook\n\n  Payoff  "_s << false << Entries{{u"Hook"_s, {}}, {u"Payoff"_s, {}}};
    QTest::newRow("every separator") << u"1\n2\u000B3\f4\r5\r\n6\u00857\u20288\u20299\n"_s << false
                                     << Entries{{u"1"_s, {}}, {u"2"_s, {}}, {u"3"_s, {}},
                                                {u"4"_s, {}}, {u"5"_s, {}}, {u"6"_s, {}},
                                                {u"7"_s, {}}, {u"8"_s, {}}, {u"9"_s, {}}};
    QTest::newRow("horizontal space only")
        << u"\t \u00A0\u1680\u2003\u202F\u205F\u3000a  b\u3000\t\n\u200B\n\u001F"_s << false
        << Entries{{u"a  b"_s, {}}, {u"\u200B"_s, {}}, {u"\u001F"_s, {}}};
    QTest::newRow("blank") << u" \n\t\r\n\u2028"_s << false << Entries{};
    QTest::newRow("empty") << QString() << false << Entries{};
    QTest::newRow("array is plain text") << u"[\n1]"_s << false << Entries{{u"["_s, {}}, {u"1]"_s, {}}};
    QTest::newRow("byte order mark is text") << u"\uFEFF{}"_s << false << Entries{{u"\uFEFF{}"_s, {}}};
    QTest::newRow("NUL and half a pair in text")
        << u"a"_s + QChar(0) + QChar(0xD800) << false << Entries{{u"a"_s + QChar(0) + QChar(0xD800), {}}};
}

void TestSlideContent::parses()
{
    QFETCH(QString, content);
    QFETCH(bool, valid);
    QFETCH(Entries, entries);
    ConsoleCapture console;
    QCOMPARE(parseSlideContent(content), entries);
    QCOMPARE(isValidSlideContent(content), valid);
    QCOMPARE(console.lines(), QStringList());
}

void TestSlideContent::complains_data()
{
    QTest::addColumn<QString>("content");
    QTest::addColumn<QString>("error");

    QTest::newRow("trailing comma") << u"\n {\"slides\":[{\"main\":\"A\"},]}"_s
                                    << u"expected a value at line 1, column 25"_s;
    QTest::newRow("raw line break") << u"{\"slides\":[{\"main\":\"A\nB\"}]}"_s
                                    << u"line break inside a string at line 1, column 22"_s;
    QTest::newRow("no slides") << u"{\"Slides\":[]}"_s << u"\"slides\" is missing"_s;
    QTest::newRow("slides of wrong type")
        << u"{\"slides\":{}}"_s << u"slides: expected an array, found an object"_s;
    QTest::newRow("no main") << u"{\"slides\":[{\"subtitle\":\"x\"}]}"_s
                             << u"slides[0]: \"main\" is missing"_s;
    QTest::newRow("null main") << u"{\"slides\":[{\"main\":\"\"},{\"main\":null}]}"_s
                               << u"slides[1].main: expected a string, found null"_s;
    QTest::newRow("wrong subtitle") << u"{\"slides\":[{\"main\":\"\",\"subtitle\":5}]}"_s
                                    << u"slides[0].subtitle: expected a string or null, found a number"_s;
    QTest::newRow("no object") << u"{\"slides\":[\"A\"]}"_s
                               << u"slides[0]: expected an object, found a string"_s;
    QTest::newRow("half a pair") << u"{\"slides\":[{\"main\":\""_s + QChar(0xDC00) + u"\"}]}"_s
                                 << u"the text holds half of a surrogate pair"_s;
    QTest::newRow("NUL") << u"{"_s + QChar(0) + u"}"_s
                         << u"expected a member name in double quotes at line 1, column 2"_s;
}

void TestSlideContent::complains()
{
    QFETCH(QString, content);
    QFETCH(QString, error);
    ConsoleCapture console;
    QVERIFY(!isValidSlideContent(content));
    QCOMPARE(parseSlideContent(content), Entries());
    QCOMPARE(updateSlideContent(content, 0, u"x"_s, {}), content);
    QCOMPARE(console.lines(),
             QStringList({u"❌ JSON parsing error: "_s + error,
                          u"💡 Tip: Check for unescaped quotes, missing commas, or trailing commas"_s,
                          u"Failed to update JSON: "_s + error}));
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

void TestSlideContent::prettifies_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");

    QTest::newRow("document") << u" {\"b\":\"x\\/y é\",\n\"a\":1.0}"_s
                              << u"{\n  \"b\": \"x/y é\",\n  \"a\": 1.0\n}"_s;
    QTest::newRow("array") << u"[1e400,{}]"_s << u"[\n  1e400,\n  {}\n]"_s;
    const QStringList unchanged{
        u"plain\n text"_s, u"\"text\""_s, u"12 "_s,      u"{\"a\":1,}"_s,
        QString(),         u"\u00A0{}"_s, u"\uFEFF{}"_s, u"[\""_s + QChar(0xD800) + u"\" ]"_s};
    for (const QString &text : unchanged)
        QTest::addRow("unchanged: %s", qPrintable(text)) << text << text;
}

void TestSlideContent::prettifies()
{
    QFETCH(QString, text);
    QFETCH(QString, expected);
    ConsoleCapture console;
    QCOMPARE(prettifySlideContent(text), expected);
    QCOMPARE(prettifySlideContent(expected), expected);
    QCOMPARE(console.lines(), QStringList());
}

void TestSlideContent::fixesNewlines_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");

    const auto row = [](const char *name, const QString &text, const QString &expected) {
        QTest::newRow(name) << text << expected;
    };
    row("inside", u"{\n\"a\":\"x\ny\",\r\n\"b\":\"\n\"\n}"_s, u"{\n\"a\":\"x\\ny\",\r\n\"b\":\"\\n\"\n}"_s);
    row("every break", u"\"\n\u000B\f\r\u0085\u2028\u2029\""_s, u"\"\\n\\n\\n\\n\\n\\n\\n\""_s);
    row("CR LF is one", u"\"\r\n\r\r\n\n\"\r\n"_s, u"\"\\n\\n\\n\\n\"\r\n"_s);
    row("escaped quote", u"\"a\\\"\n\"\n"_s, u"\"a\\\"\\n\"\n"_s);
    row("escaped backslash counts as escape", u"\"a\\\\\"\n\"\n"_s, u"\"a\\\\\"\\n\"\n"_s);
    row("quote at the start after nothing", u"\"\n"_s, u"\"\\n"_s);
    row("marked quote is no quote", u"\"\u0301\n\"\n"_s, u"\"\u0301\n\"\\n"_s);
    row("marked backslash escapes nothing", u"\"\\\u0301\"\n"_s, u"\"\\\u0301\"\n"_s);
    row("quote after a prefix character", u"\u0600\"\n"_s, u"\u0600\"\n"_s);
    row("half pairs and NUL stay", u"\""_s + QChar(0xD800) + u"\n"_s + QChar(0) + QChar(0xDC00),
        u"\""_s + QChar(0xD800) + u"\\n"_s + QChar(0) + QChar(0xDC00));
    row("empty", QString(), QString());
}

void TestSlideContent::fixesNewlines()
{
    QFETCH(QString, text);
    QFETCH(QString, expected);
    QCOMPARE(fixNewlinesInStrings(text), expected);
    QCOMPARE(fixNewlinesCharacterByCharacter(text), expected);
}

void TestSlideContent::fixesNewlinesCharacterByCharacter()
{
    const std::u32string alphabet =
        U"\"\"\"\\\\\n\n\r\u000B\u0085\u2028ax\u00AD\u0301\u0600\U000110BD\u200D\u0903\uFE0F"
        U"\U0001F469\U0001F1E9\u1100\u1161";
    std::mt19937 random(7);
    std::uniform_int_distribution<size_t> pick(0, alphabet.size() - 1);
    for (int round = 0; round < 20000; ++round) {
        std::u32string characters;
        for (size_t length = pick(random); length > 0; --length)
            characters += alphabet[pick(random)];
        const QString text = QString::fromStdU32String(characters);
        QCOMPARE(fixNewlinesInStrings(text), fixNewlinesCharacterByCharacter(text));
    }
}

void TestSlideContent::fixedDocumentDecodes()
{
    const QString broken = u"{\n\"slides\": [\n{\"main\": \"A\r\nB\", \"subtitle\": \"\u2028\"}]}"_s;
    QVERIFY(!isValidSlideContent(broken));
    QCOMPARE(parseSlideContent(fixNewlinesInStrings(broken)), Entries({{u"A\nB"_s, u"\n"_s}}));
}

void TestSlideContent::updates_data()
{
    using Text = std::optional<QString>;
    QTest::addColumn<QString>("content");
    QTest::addColumn<qsizetype>("index");
    QTest::addColumn<Text>("newMain");
    QTest::addColumn<Text>("newSubtitle");
    QTest::addColumn<QString>("expected");

    const QString standard = defaultSlideContent.toString();
    const QString two =
        u" {\"x\":1,\"slides\":[{\"main\":\"A\",\"y\":2},{\"main\":\"B\",\"subtitle\":null}]} "_s;
    const auto row = [](const char *name, const QString &content, qsizetype index, const Text &newMain,
                        const Text &newSubtitle, const QString &expected) {
        QTest::newRow(name) << content << index << newMain << newSubtitle << expected;
    };
    row("main", standard, 0, u"N/\"é\n"_s, {},
        u"{\n  \"slides\": [\n    {\n      \"main\": \"N/\\\"é\\n\",\n      \"subtitle\": \"Subtext\"\n    }\n  ]\n}"_s);
    row("subtitle added, others dropped", two, 1, {}, u"s"_s,
        u"{\n  \"slides\": [\n    {\n      \"main\": \"A\"\n    },\n    {\n      \"main\": \"B\",\n"
        "      \"subtitle\": \"s\"\n    }\n  ]\n}"_s);
    row("empty subtitle stays", standard, 0, {}, QString(),
        u"{\n  \"slides\": [\n    {\n      \"main\": \"Main Text\",\n      \"subtitle\": \"\"\n    }\n  ]\n}"_s);
    row("past the end", standard, 1, u"N"_s, {}, standard);
    row("negative", standard, -1, u"N"_s, {}, standard);
    row("no entries", u"{\"slides\":[]}"_s, 0, u"N"_s, {}, u"{\"slides\":[]}"_s);
    row("plain text", u"A\nB"_s, 0, u"N"_s, {}, u"A\nB"_s);
}

void TestSlideContent::updates()
{
    QFETCH(QString, content);
    QFETCH(qsizetype, index);
    QFETCH(std::optional<QString>, newMain);
    QFETCH(std::optional<QString>, newSubtitle);
    QFETCH(QString, expected);
    ConsoleCapture console;
    QCOMPARE(updateSlideContent(content, index, newMain, newSubtitle), expected);
    QCOMPARE(console.lines(), QStringList());
}

void TestSlideContent::complainsOfUpdates()
{
    ConsoleCapture console;
    const QString content = defaultSlideContent.toString();
    QCOMPARE(updateSlideContent(content, 0, {}, QString(QChar(0xD83D))), content);
    QCOMPARE(console.lines(),
             QStringList{u"Failed to update JSON: the text holds half of a surrogate pair"_s});
}

void TestSlideContent::largeTexts()
{
    const qsizetype count = 300'000;
    const QString entry = u"{\"main\":\"M é\\n\",\"subtitle\":\"😀\"},\n"_s;
    const QString document = u"{\"slides\":[\n"_s + entry.repeated(count).chopped(2) + u"]}"_s;
    QVERIFY(document.toUtf8().size() > 10'000'000);
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(parseSlideContent(document).size(), count);
    QVERIFY(isValidSlideContent(document));
    QVERIFY(prettifySlideContent(document).size() > document.size());
    QCOMPARE(fixNewlinesInStrings(document), document);
    QVERIFY(updateSlideContent(document, count - 1, u"last"_s, {}).contains(u"last"_s));
    QCOMPARE(parseSlideContent(u"a\u3000\n"_s.repeated(3'000'000)).size(), 3'000'000);
    // They take about a second together; what grows with the square of the length would take hours.
    QVERIFY2(timer.elapsed() < 30000, qPrintable(u"%1 ms"_s.arg(timer.elapsed())));
}

QTEST_APPLESS_MAIN(TestSlideContent)
#include "tst_slide_content.moc"
