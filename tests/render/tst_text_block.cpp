#include "drawn.h"
#include "render/text/fallback_fonts.h"
#include "render/text/fonts.h"
#include "tests/table.h"

#include <QtGui/QPainter>
#include <QtGui/QRawFont>

#include <limits>

using namespace mosslantern;
using namespace mosslantern::test;
using namespace Qt::StringLiterals;

namespace {

constexpr RgbaColor red{1, 0, 0, 1};
constexpr RgbaColor black{0, 0, 0, 1};
constexpr RgbaColor clear{0, 0, 0, 0};

SlideValues slide(TextStyle style, const QString &text, const RgbaColor &boxColor)
{
    SlideValues values;
    values.text = text;
    values.style.textStyle = style;
    values.style.setBoxColor(boxColor);
    return values;
}

bool isDark(const QColor &color)
{
    return color.red() < 60 && color.green() < 60 && color.blue() < 60;
}

} // namespace

/// Measures drawn blocks against the geometry that the format of slides fixes.
class TestTextBlock : public QObject
{
    Q_OBJECT

private:
    const Canvas canvas{{350, 400}, 2}; // text of 32 points

private slots:
    void initTestCase() { QVERIFY(registerFonts()); }

    void boxesStandWhereTheyBelong_data()
    {
        const auto row = table<QString, QPointF, double, int>({"text", "position", "scale", "lines"});
        row("centre", u"Hello"_s, {0.5, 0.5}, 1.0, 1);
        row("elsewhere, scaled", u"Hello"_s, {0.4, 0.3}, 1.7, 1);
        row("small", u"Hello there"_s, {0.6, 0.7}, 0.4, 1);
        row("three lines, an empty one", u"A\n\nB"_s, {0.5, 0.5}, 1.0, 3);
        row("carriage return and line feed", u"A\r\nB"_s, {0.5, 0.5}, 1.0, 3);
        row("every line break", u"A\vB\fC\u0085D\u2028E\u2029F"_s, {0.5, 0.5}, 0.7, 6);
        row("nothing", QString(), {0.5, 0.5}, 1.0, 1);
    }

    void boxesStandWhereTheyBelong()
    {
        QFETCH(QString, text);
        QFETCH(QPointF, position);
        QFETCH(double, scale);
        QFETCH(int, lines);
        SlideValues values = slide(TextStyle::boxed, text, red);
        values.style.setTextPos(position);
        values.style.textScale = scale;
        const TextBlock block(text, TextStyle::boxed, false, red, canvas.size.width());
        QCOMPARE(block.lineCount(), lines);

        // Inter's ascent and descent are 1.21 em; the boxes overlap by one point.
        const double lineHeight = 28.8 * (2728 + 680) / 2816 + 4;
        QVERIFY(std::abs(block.size().height() - (lines * (lineHeight - 1) + 1)) < 0.1);

        const QRectF box = boundsOf(drawn(values, canvas), isRed);
        const QPointF centre(position.x() * 700, position.y() * 800);
        QVERIFY2(std::abs(box.center().x() - centre.x()) <= 1 && std::abs(box.center().y() - centre.y()) <= 1,
                 qPrintable(u"centre %1, %2"_s.arg(box.center().x()).arg(box.center().y())));
        const QSizeF size = block.size() * scale * 2;
        QVERIFY(std::abs(box.width() - size.width()) <= 2);
        QVERIFY(std::abs(box.height() - size.height()) <= 2);
    }

    void stackedBoxesLeaveNoGap()
    {
        const QImage image = drawn(slide(TextStyle::boxed, u"\n\n"_s, red), canvas);
        const QRect box = boundsOf(image, isRed);
        for (int y = box.top() + 1; y < box.bottom(); ++y)
            QVERIFY2(isRed(image.pixelColor(350, y)), qPrintable(u"gap at row %1"_s.arg(y)));
    }

    void linesAreNotWrapped()
    {
        const QRect box = boundsOf(drawn(slide(TextStyle::boxed, QString(60, u'm'), red), canvas), isRed);
        QCOMPARE(box.left(), 0);
        QCOMPARE(box.right(), 699);
        QVERIFY(box.height() < 90);
    }

    void halfABlockOnTheEdgeIsCut()
    {
        SlideValues values = slide(TextStyle::boxed, u"Hello"_s, red);
        const QRect whole = boundsOf(drawn(values, canvas), isRed);
        values.style.textX = 0;
        const QRect cut = boundsOf(drawn(values, canvas), isRed);
        QCOMPARE(cut.left(), 0);
        QVERIFY(std::abs(cut.width() - whole.width() / 2) <= 1);
    }

    void outlineReaches()
    {
        SlideValues values = slide(TextStyle::classic, u"I"_s, black);
        for (const double scale : {1.0, 3.0, 1.3}) {
            values.style.textScale = scale;
            const QImage image = drawn(values, canvas);
            const QRect middle(0, 400, 700, 1);
            const QRect letter = boundsOf(image, isWhite, middle);
            const QRect outline = boundsOf(image, isDark, middle);
            // Diagonal copies of one point, twice over in each direction: two points of hard edge, then the
            // blur.
            const int left = letter.left() - outline.left();
            const double points = left / (2 * scale);
            QVERIFY2(points > 1.6 && points < 2.8, qPrintable(u"%1 points at %2"_s.arg(points).arg(scale)));
            QVERIFY(std::abs(left - (outline.right() - letter.right())) <= 1);
        }
    }

    void outlineOfAClearColourIsNone()
    {
        const QImage image = drawn(slide(TextStyle::classic, u"I"_s, clear), canvas);
        QVERIFY(!boundsOf(image, isWhite).isNull());
        QVERIFY(boundsOf(image, isDark, image.rect().adjusted(30, 30, -30, -30)).isNull());
    }

    void scaledLettersAreAsCrisp()
    {
        SlideValues values = slide(TextStyle::classic, u"I"_s, clear);
        for (const double scale : {1.0, 3.0, 9.0}) {
            values.style.textScale = scale;
            const QImage image = drawn(values, canvas);
            int between = 0;
            for (int x = 0; x < image.width(); ++x) {
                const QColor color = image.pixelColor(x, 400);
                between += color.red() > 0 && color.red() < 255 ? 1 : 0;
            }
            QVERIFY2(between <= 2, qPrintable(u"%1 blurred pixels at scale %2"_s.arg(between).arg(scale)));
        }
    }

    void pillsStandBehindSubtitlesOnly_data()
    {
        const auto row = table<TextStyle, QString, bool>({"style", "subtitle", "pill"});
        row("modern", TextStyle::modern, u"sub"_s, true);
        row("neon", TextStyle::neon, u"sub"_s, true);
        row("a space", TextStyle::modern, u" "_s, true);
        row("none", TextStyle::modern, QString(), false);
        row("classic", TextStyle::classic, u" "_s, false);
    }

    void pillsStandBehindSubtitlesOnly()
    {
        QFETCH(TextStyle, style);
        QFETCH(QString, subtitle);
        QFETCH(bool, pill);
        // The main text is a space: in these styles it shows nothing at all.
        SlideValues values = slide(style, u" "_s, clear);
        values.subtitle = subtitle;
        const QImage image = drawn(values, canvas, Qt::white);
        const auto isPill = [](const QColor &color) { return color.red() > 90 && color.red() < 115; };
        const QRect shown = boundsOf(image, isPill, QRect(0, 560, 700, 160));
        QCOMPARE(!shown.isNull(), pill);
        if (pill)
            QVERIFY(std::abs(shown.center().y() - 640) <= 2);
        QVERIFY(boundsOf(image, isPill, QRect(0, 300, 700, 200)).isNull());
    }

    void subtitleLiesOnTop()
    {
        SlideValues values = slide(TextStyle::boxed, u"WWWW\nWWWW"_s, red);
        values.subtitle = u" "_s;
        values.style.setSubtitlePos(values.style.textPos());
        const QImage image = drawn(values, canvas);
        const TextBlock space(u" "_s, TextStyle::boxed, true, red, 350);
        const QRectF box(QPointF(350, 400) - QPointF(space.size().width(), space.size().height()),
                         space.size() * 2);
        QVERIFY(boundsOf(
                    image, [](const QColor &c) { return !isRed(c); }, box.toRect().adjusted(9, 9, -9, -9))
                    .isNull());
    }

    void emojiAreInColourAndCastShadows()
    {
        for (const TextStyle style : allTextStyles) {
            const QImage image = drawn(slide(style, u"❤️"_s, black), canvas, Qt::green);
            const QRect heart = boundsOf(
                image, [](const QColor &c) { return c.red() > 200 && c.green() < 90 && c.blue() < 90; });
            QVERIFY2(heart.width() > 50 && heart.width() < 100, qPrintable(rawText(style)));
            if (style == TextStyle::classic)
                QVERIFY(boundsOf(image, isDark).contains(heart));
        }
    }

    void emojiHaveTheWidthOfBrowsers()
    {
        const LineLayout one(u"😀"_s, TextStyle::boxed, 32);
        QVERIFY(std::abs(one.width() / 32 - 1.245) < 0.01);
        QCOMPARE(one.height(), LineLayout(u"x"_s, TextStyle::boxed, 32).height());
    }

    void linesHoldWhatIsInThem_data()
    {
        const auto row = table<QString>({"text"});
        row("Burmese", u"ဤဘဝတွင် ကြွေးမြီ"_s);
        row("Telugu", u"స్త్రీ కృష్ణుడు క్ష్మి"_s);
        row("Tibetan", u"ཨོཾ་མ་ཎི་པདྨེ་ཧཱུྃ བསྒྲུབས་"_s);
        row("Tamil", u"தமிழ் மொழி ஸ்ரீ"_s);
        row("Thai", u"ฟื้นฟู ที่ปู่ ญี่ปุ่น"_s);
        row("Lao", u"ພາສາລາວ ກຸ້ງ"_s);
        row("Khmer", u"ទ្រព្យសម្បត្តិ ស្រ្តី"_s);
        row("Arabic", u"پچ چاي ٱلرَّحْمَٰنِ"_s);
        row("Hebrew", u"בְּרֵאשִׁית ךָּ"_s);
        row("Devanagari", u"ट्रैक्ट्रि द्धृ ङ्क्षि"_s);
        row("Kannada", u"ಸ್ತ್ರೀ ಕೃಷ್ಣ ಕ್ಷ್ಮಿ"_s);
        row("Javanese", u"ꦏꦿꦏ꧀ꦱ"_s);
        row("Chinese", u"漢字"_s);
        row("Korean", u"뷁쉙"_s);
        row("Music", u"𝄞 𝅘𝅥𝅮"_s);
        row("mixed", u"Hello नमस्ते สวัสดี ཧཱུྃ"_s);
    }

    void linesHoldWhatIsInThem()
    {
        QFETCH(QString, text);
        for (const TextStyle style : allTextStyles) {
            const LineLayout line(text, style, 32);
            const double margin = 100;
            QImage image(static_cast<int>(line.width() + 2 * margin),
                         static_cast<int>(std::ceil(line.height() + 2 * margin)), QImage::Format_RGB32);
            image.fill(Qt::black);
            QPainter painter(&image);
            painter.translate(margin, margin);
            line.draw(painter, Qt::white);
            painter.end();
            const QRect ink = boundsOf(image, isWhite);
            QVERIFY(!ink.isNull());
            QVERIFY2(ink.top() >= margin - 1 && ink.bottom() <= margin + line.height(),
                     qPrintable(u"%1 to %2 of %3"_s.arg(ink.top() - margin)
                                    .arg(ink.bottom() - margin)
                                    .arg(line.height())));
        }
    }

    void linesOfTheTextFontsStayAsTheyAre()
    {
        for (const TextStyle style : allTextStyles) {
            const double plain = LineLayout(u"x"_s, style, 32).height();
            for (const QString &text :
                 {u"Größe ẤỘ"_s, u"Ёлка"_s, u"Άέή"_s, u"❤️ 1️⃣ 🎉"_s, u"→ ✓ ★"_s})
                QCOMPARE(LineLayout(text, style, 32).height(), plain);
        }
    }

    void higherLinesStackTheSame()
    {
        const TextBlock block(u"Latin\nမြန်မာ\n\nབོད་\nLatin"_s, TextStyle::boxed, false, red, 350);
        double bottom = -block.size().height() / 2 + 1;
        for (qsizetype line = 0; line < block.lineCount(); ++line) {
            QVERIFY(std::abs(block.lineBox(line).top() - (bottom - 1)) < 1e-9);
            bottom = block.lineBox(line).bottom();
        }
        QVERIFY(std::abs(bottom - block.size().height() / 2) < 1e-9);
        QVERIFY(block.lineBox(1).height() > block.lineBox(0).height() + 5);
        QCOMPARE(block.lineBox(4).height(), block.lineBox(0).height());
    }

    void otherLettersComeFromOneChain_data()
    {
        const auto row = table<TextStyle, QString, QString>({"style", "text", "runs"});
        row("Latin", TextStyle::boxed, u"Größe — “x” ✓"_s, QString());
        row("Greek", TextStyle::classic, u"a Άέ 1 β"_s, u"2+2 Noto Sans, 7+1 Noto Sans"_s);
        row("Greek in Inter", TextStyle::modern, u"Άέ"_s, QString());
        row("joined", TextStyle::neon, u"می\u200Cخواهم x"_s, u"0+8 Noto Sans Arabic"_s);
        row("marks", TextStyle::boxed, u"हिं a\u0301"_s, u"0+3 Noto Sans Devanagari"_s);
        row("shared sign", TextStyle::boxed, u"ना।"_s, u"0+3 Noto Sans Devanagari"_s);
        row("two scripts", TextStyle::boxed, u"漢ไท"_s, u"0+1 Noto Sans CJK SC, 1+2 Noto Sans Thai"_s);
        row("Tibetan", TextStyle::boxed, u"བོད"_s, u"0+3 Noto Serif Tibetan"_s);
        row("mathematical", TextStyle::boxed, u"𝓗𝓲"_s, u"0+4 Noto Sans Math"_s);
        row("no font's", TextStyle::boxed, u"a\U000F1234"_s, QString());
    }

    void otherLettersComeFromOneChain()
    {
        QFETCH(TextStyle, style);
        QFETCH(QString, text);
        QStringList runs;
        for (const FallbackRun &found : fallbackRuns(text, QRawFont::fromFont(layoutFont(style, 32))))
            runs += u"%1+%2 %3"_s.arg(found.run.start).arg(found.run.length).arg(found.family);
        QTEST(runs.join(u", "_s), "runs");
    }

    /// The stem of a letter, in hundredths of an em.
    static double stem(const QString &letter, TextStyle style)
    {
        const LineLayout line(letter, style, 100);
        QImage image(400, 400, QImage::Format_RGB32);
        image.fill(Qt::black);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.translate(100, 300 - line.ascent());
        line.draw(painter, Qt::white);
        double sum = 0;
        for (int x = 0; x < image.width(); ++x)
            sum += qRed(image.pixel(x, 265)) / 255.0;
        return sum;
    }

    void noLettersAreThin()
    {
        for (const TextStyle style : allTextStyles) {
            QVERIFY(stem(u"I"_s, style) > 12);
            for (const QString &letter : {u"𐌹"_s, u"ᛁ"_s, u"𝖨"_s, u"ا"_s})
                QVERIFY2(stem(letter, style) > 13, qPrintable(letter));
            // Bold by nature.
            QVERIFY(stem(u"𝗜"_s, style) < 16);
        }
    }

    void overhangsDoNotMoveALine_data()
    {
        const auto row = table<QString>({"text"});
        row("Arabic", u"مرحبا بالعالم جميل"_s);
        row("Urdu", u"اردو ٹھیک ڈاکٹر چاہیے"_s);
        row("Devanagari", u"मराठी द्धृ ङ्क्षि"_s);
        row("Burmese", u"ချစ်ခြင်းမေတ္တာ အိမ်ကြီး"_s);
    }

    void overhangsDoNotMoveALine()
    {
        QFETCH(QString, text);
        for (const TextStyle style : allTextStyles) {
            SlideValues values = slide(style, text, clear);
            values.style.textScale = 0.4;
            const QRect ink = boundsOf(
                drawn(values, canvas, Qt::green),
                [](const QColor &c) { return c.red() > 128 || c.green() < 128; }, QRect(10, 300, 680, 200));
            QVERIFY(ink.left() > 10);
            QVERIFY2(std::abs(ink.center().x() - 350) <= 2,
                     qPrintable(u"%1 pixels off"_s.arg(ink.center().x() - 350)));
        }
    }

    void tabsLeadToTheNextEightSpaces()
    {
        for (const TextStyle style : allTextStyles) {
            const auto width = [style](const QString &text) { return LineLayout(text, style, 28.8).width(); };
            const double stop = 8 * width(u" "_s);
            QVERIFY(std::abs(width(u"i\ti"_s) - stop - width(u"i"_s)) < 0.2);
            QVERIFY(std::abs(width(u"\t\ti"_s) - 2 * stop - width(u"i"_s)) < 0.2);
        }
    }

    void fractionalSizesCount()
    {
        const double whole = LineLayout(u"Hamburgefonts"_s, TextStyle::boxed, 288).width();
        const double tenth = LineLayout(u"Hamburgefonts"_s, TextStyle::boxed, 28.8).width();
        QVERIFY(std::abs(whole / 10 - tenth) < 0.01);
    }

    void rightToLeftLinesAreCentredToo()
    {
        for (const QString &text : {u"שלום עולם"_s, u"مرحبا بالعالم"_s, u"abc שלום"_s}) {
            const QImage image = drawn(slide(TextStyle::classic, text, clear), canvas);
            const QRect ink = boundsOf(image, isWhite);
            QVERIFY2(std::abs(ink.center().x() - 350) < 12, qPrintable(text));
        }
    }

    void absurdValuesAreBounded_data()
    {
        const auto row = table<double, QPointF>({"scale", "position"});
        const double nan = std::numeric_limits<double>::quiet_NaN();
        const double infinity = std::numeric_limits<double>::infinity();
        for (const double scale : {0.0, 1e-9, 50.0, 1e4, 1e12, 1e300, infinity, nan, -1.0, -1e9})
            QTest::addRow("scale %g", scale) << scale << QPointF(0.5, 0.5);
        row("far away", 1.0, {1e9, -1e9});
        row("nowhere", 1.0, {nan, infinity});
        row("far away and large", 1e6, {1e6, 0.5});
    }

    void absurdValuesAreBounded()
    {
        QFETCH(double, scale);
        QFETCH(QPointF, position);
        for (const TextStyle style : allTextStyles) {
            SlideValues values = slide(style, u"Hello 😀\nyou"_s, black);
            values.style.textScale = scale;
            values.style.setTextPos(position);
            const std::vector<Layer> layers = drawTexts(values, canvas);
            for (const Layer &layer : layers)
                QVERIFY(QRect(0, 0, 700, 800).contains(QRect(layer.at, layer.image.size())));
        }
    }

    void endlessTextsAreBounded_data()
    {
        const auto row = table<QString>({"text"});
        row("letters", QString(300'000, u'x'));
        row("words", u"word "_s.repeated(100'000));
        row("emoji", u"🎉"_s.repeated(40'000));
        row("joined letters", u"الله "_s.repeated(20'000));
        row("lines", u"line\n"_s.repeated(100'000));
    }

    void endlessTextsAreBounded()
    {
        QFETCH(QString, text);
        for (const TextStyle style : {TextStyle::classic, TextStyle::boxed}) {
            const QImage image = drawn(slide(style, text, red), canvas);
            // The middle of the text shows from edge to edge.
            const auto isText = [](const QColor &c) { return c.blue() < 200 || isWhite(c); };
            const QRect shown = boundsOf(image, isText, QRect(0, 350, 700, 100));
            QVERIFY(shown.height() > 30 && (shown.width() > 650 || text.contains(u'\n')));
        }
    }

    void wideBlursContinueNarrowOnes()
    {
        // The glow's blur is computed on a smaller plane from 32 pixels on: nobody must see where.
        SlideValues values = slide(TextStyle::neon, u"Glow"_s, black);
        values.style.textScale = 3.199;
        const QImage before = drawn(values, canvas);
        values.style.textScale = 3.201;
        const QImage after = drawn(values, canvas);
        // The letters themselves move by a fraction of a pixel; the glow above and below them is smooth.
        const QRect letters = boundsOf(before, isWhite).adjusted(-3, -3, 3, 3);
        int worst = 0;
        for (int y = 30; y < before.height() - 30; ++y) {
            if (y >= letters.top() && y <= letters.bottom())
                continue;
            for (int x = 0; x < before.width(); ++x)
                worst =
                    std::max(worst, std::abs(before.pixelColor(x, y).red() - after.pixelColor(x, y).red()));
        }
        QVERIFY2(worst <= 3, qPrintable(u"a step of %1 levels"_s.arg(worst)));
    }
};

QTEST_MAIN(TestTextBlock)
#include "tst_text_block.moc"
