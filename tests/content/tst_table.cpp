#include "content/json.h"
#include "content/slide_content.h"
#include "content/table/delimited_text.h"
#include "content/table/table_contents.h"
#include "tests/table.h"

#include <QtTest/QTest>

using namespace mosslantern;
using namespace Qt::StringLiterals;

namespace {

const QString documentWithFields =
    uR"({"slides":[{"main":"{{city|Berlin}}!"},{"main":"{{}","subtitle":"{{the_price}}"}]})"_s;
const QString captioned = uR"({"caption": "about {{text 1}}", "slides": [{"main": "{{text1}}"}]})"_s;
constexpr QByteArrayView twoDocuments = R"([{"slides":[{"main":"a","n":1.50}]},{}])";

/// All cells of a table: rows by "/", cells by ";".
QString cells(const Table &table)
{
    QStringList rows;
    for (qsizetype row = 0; row < table.rowCount(); ++row) {
        QStringList texts;
        for (qsizetype column = 0; column < table.columnCount(); ++column)
            texts.append(table.text(row, column));
        rows.append(texts.join(u';'));
    }
    return rows.join(u'/');
}

Result<TableContents> tableContents(const Table &table, const std::optional<QString> &content,
                                    const RowNumbers &rows = {})
{
    return TableContents::read(table, meaningsOf(table), content, rows);
}

QStringList problems(const TableContents &contents)
{
    QStringList lines;
    for (const RowProblem &problem : contents.problems())
        lines.append(u"%1: %2"_s.arg(problem.number).arg(problem.reason));
    return lines;
}

/// The number and slides of each row: "1: main+subtitle, main".
QStringList slideshows(const TableContents &contents)
{
    QStringList rows;
    for (qsizetype place = 0; place < contents.count(); ++place) {
        const TableRow row = contents.row(place);
        QStringList slides;
        for (const SlideText &slide : parseSlideContent(row.content()))
            slides.append(slide.subtitle.isEmpty() ? slide.main : slide.main + u'+' + slide.subtitle);
        rows.append(u"%1: %2"_s.arg(row.number).arg(slides.join(u", ")));
    }
    return rows;
}

} // namespace

class TestTable : public QObject
{
    Q_OBJECT

private slots:
    void reads_data()
    {
        const auto row = table<QByteArray, QString>({"bytes", "expected"});
        const auto utf16 = [](char16_t mark, bool isBig) {
            QByteArray bytes;
            for (const QChar letter : (mark ? QString(QChar(mark)) : QString()) + u"a\tÄ\n1\t2\n"_s) {
                const char16_t c = letter.unicode();
                bytes += char(isBig ? c >> 8 : c & 0xFF);
                bytes += char(isBig ? c & 0xFF : c >> 8);
            }
            return bytes;
        };
        row("commas", "a,b\r\n1,2\r\n", u"a;b/1;2"_s);
        row("semicolons, commas in cells", "a;b\n1,5;2,5\n3,1;4\n", u"a;b/1,5;2,5/3,1;4"_s);
        row("quotes", "a,b\n\"x, \"\"y\"\"\r\nz\",2", u"a;b/x, \"y\"\nz;2"_s);
        row("one column", "a\nb, c\nd\n", u"a/b, c/d"_s);
        row("told", "sep=|\r\na,b|c\n", u"a,b;c"_s);
        row("old line ends, ragged, empty rows", "a,b,c\r\r1\r,2,\r\r", u"a;b;c/;;/1;;/;2;"_s);
        row("mark", "\xEF\xBB\xBF\"a\",b\n", u"a;b"_s);
        row("UTF-16", utf16(0xFEFF, false), u"a;Ä/1;2"_s);
        row("UTF-16 the other way", utf16(0xFEFF, true), u"a;Ä/1;2"_s);
        row("UTF-16 without mark", utf16(0, false), u"a;Ä/1;2"_s);
        row("Windows-1252", "a;\x80 \xE4\n", u"a;€ ä"_s);
        row("nothing", "", QString());
        row("open quote", "a,b\n1,\"2\n", u"!The quote that begins in row 2 has no end."_s);
        row("workbook", QByteArray("PK\x03\x04...."), u"!This is a workbook"_s);
        row("no text", QByteArray("a\0\0\0b,", 6), u"!This is no text"_s);
        row("too wide", QByteArray(20'000, ',') + "x", u"!The table is too large"_s);
    }

    void reads()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, expected);
        const Result<Table> read = readDelimitedText(bytes);
        const QString outcome = read ? cells(*read) : u'!' + read.error().message;
        QVERIFY2(expected.startsWith(u'!') ? outcome.startsWith(expected) : outcome == expected,
                 qPrintable(outcome));
    }

    void columnsAreSlides()
    {
        const Result<Table> read =
            readDelimitedText("Main 1,sub_1,SLIDE 3,Text2,image 3,style,Shape,note\n"
                              "A,a,C,,green,Neon,1:1,x\n\n,,,,,,,only a "
                              "note\nD,,,,,fancy,,\n,s,,\"{\"\"slides\"\":[]}\",,,,\n");
        const auto contents = tableContents(read.value(), {}, {});
        QVERIFY(contents);
        QCOMPARE(slideshows(*contents), (QStringList{u"1: A+a, C"_s, u"5: +s, {\"slides\":[]}"_s}));
        QCOMPARE(contents->row(0).pictures, (QStringList{QString(), u"green"_s}));
        QCOMPARE(contents->row(0).style, TextStyle::neon);
        QCOMPARE(contents->row(0).shape, AspectRatio::square);
        QCOMPARE(contents->unusedColumns(), QStringList{u"note"_s});
        QCOMPARE(problems(*contents), (QStringList{u"3: no text"_s, u"4: “fancy” is no style"_s}));
        const auto some = tableContents(*read, {}, RowNumbers::parse(u"4-5,9"_s).value());
        QCOMPARE(some->count(), 1);
        QCOMPARE(some->problems().size(), 1);
        QVERIFY(!tableContents(readDelimitedText("city,price\nA,1\n").value(), {}, {}));
        for (const QString &wrong : {u"0"_s, u"5-4"_s, u"1-2-3"_s, u"1,"_s, u"a"_s})
            QVERIFY2(!RowNumbers::parse(wrong), qPrintable(wrong));
    }

    void fieldsAreFilled()
    {
        const Result<Table> read = readDelimitedText("City,The Price\n\"P\"\"}}{{x\ny\",5 €\n,7\n\\u0041,\n");
        const QString content = documentWithFields;
        const auto contents = tableContents(read.value(), content, {});
        QVERIFY(contents);
        QCOMPARE(slideshows(*contents),
                 (QStringList{u"1: P\"}}{{x\ny!, {{}+5 €"_s, u"2: Berlin!, {{}+7"_s, u"3: \\u0041!, {{}"_s}));
        const auto unknown = tableContents(*read, u"{{city}} {{town|x}}"_s, {});
        QVERIFY(!unknown);
        QCOMPARE(unknown.error().message, u"The table has no column for the field “{{town|x}}”."_s);
        QCOMPARE(tableContents(*read, u"{{city}}"_s, {})->problems().size(), 1); // an empty cell
    }

    void batchesAndCaptions()
    {
        const Result<Table> read =
            readDelimitedText("text 1,Batch,caption,text 2,text 3,text 4,text 5,text 6\n"
                              "A,x,\"#a\n#b\"\nB,,,1,2,3,4\nC,,,1,2,3,4,5\n");
        auto contents = tableContents(read.value(), {});
        QVERIFY(contents);
        QCOMPARE(problems(*contents), QStringList{u"3: 6 slides; a slideshow has at most 5"_s});
        QCOMPARE(contents->row(0).batch, u"x"_s);
        QCOMPARE(contents->row(0).caption, u"#a\n#b"_s);
        QCOMPARE(contents->row(1).slides.size(), 5);
        QVERIFY(contents->unusedColumns().isEmpty());
        contents->exclude([](const TableRow &row) {
            return row.number == 1 ? std::optional(u"unwanted"_s) : std::nullopt;
        });
        QCOMPARE(problems(*contents).first(), u"1: unwanted"_s);
        QCOMPARE(contents->count(), 1);
        QVERIFY(!contents->placeOf(1));
        QCOMPARE(contents->placeOf(2), 0);

        // A caption in the document is filled; a cell wins over it, and anything but a text is none.
        const auto filled = tableContents(*read, captioned);
        QVERIFY(filled);
        QCOMPARE(filled->row(0).caption, u"#a\n#b"_s);
        QCOMPARE(filled->row(1).caption, u"about B"_s);
        QCOMPARE(captionOf(captioned), u"about {{text 1}}"_s);
        QCOMPARE(captionOf(u"{\"caption\": 7, \"slides\": []}"_s), QString());
        const auto tooMany = tableContents(*read, u"1\n2\n3\n4\n5\n6"_s);
        QCOMPARE(tooMany.error().message, u"The content has 6 slides; a slideshow has at most 5."_s);
    }

    void elementsOfAnArray()
    {
        const auto elements = jsonElements(twoDocuments);
        QVERIFY(elements);
        QCOMPARE(elements->size(), 2U);
        QVERIFY(elements->at(0).contains("1.50"));
        QCOMPARE(parseSlideContent(QString::fromUtf8(elements->at(0))), (QList<SlideText>{{u"a"_s, {}}}));
        for (const char *wrong : {"{}", "[1]", "[{}", "\"\"", "[{}, null]", ""})
            QVERIFY2(!jsonElements(wrong), wrong);
    }
};

QTEST_GUILESS_MAIN(TestTable)
#include "tst_table.moc"
