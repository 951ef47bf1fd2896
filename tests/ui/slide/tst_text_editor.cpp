// The text editor over the drawn text: where its caret lies, and what typing does.

#include "render/text/line_layout.h"
#include "tests/table.h"
#include "tests/ui/slide/canvas_session.h"
#include "ui/common/plain_text.h"
#include "ui/slide/coordinator.h"

#include <QtGui/QClipboard>
#include <QtGui/QInputMethodEvent>
#include <QtGui/QPainter>

using namespace mosslantern;
using namespace Qt::StringLiterals;

namespace {

constexpr double tolerance = 0.5;

/// How much ink each column of a drawn line holds, in quarters of a point from its left edge on.
QList<double> inkOf(const QString &line)
{
    const LineLayout layout(line, TextStyle::classic, fontSize(TextStyle::classic, 360));
    QImage image(1600, 400, QImage::Format_RGB32);
    image.fill(Qt::black);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.translate(40, 200 - 4 * layout.ascent());
    painter.scale(4, 4);
    layout.draw(painter, Qt::white);
    painter.end();
    QList<double> columns(image.width() - 40);
    for (int y = 0; y < image.height(); ++y) {
        for (qsizetype x = 0; x < columns.size(); ++x)
            columns[x] += qGreen(image.pixel(static_cast<int>(x) + 40, y)) / 255.0;
    }
    return columns;
}

/// The share of the ink of `word` that the drawn `line` does not have `left` points from its left edge.
double differenceOfInk(const QString &line, const QString &word, double left)
{
    const QList<double> drawn = inkOf(line);
    const QList<double> expected = inkOf(word);
    const auto shift = static_cast<qsizetype>(std::lround(4 * left));
    const double width = LineLayout(word, TextStyle::classic, fontSize(TextStyle::classic, 360)).width();
    double sum = 0;
    double off = 0;
    for (qsizetype x = 0; x < static_cast<qsizetype>(4 * width); ++x) {
        sum += expected[x];
        off += std::abs(expected[x] - (shift + x < 0 ? 0 : drawn[shift + x]));
    }
    return off / sum;
}

/// A canvas whose main text is being edited.
class TypingSession : public CanvasSession
{
public:
    explicit TypingSession(const QString &text)
    {
        slide->setText(text);
        mainBlock->startEditing();
        static_cast<void>(QTest::qWaitFor([this] { return edit() && edit()->hasActiveFocus(); }));
    }

    QQuickItem *edit() const { return find(u"textEdit"_s); }
    QString text() const { return edit()->property("text").toString(); }
    int caret() const { return edit()->property("cursorPosition").toInt(); }
    void setCaret(int position) { edit()->setProperty("cursorPosition", position); }
    QString selected() const { return edit()->property("selectedText").toString(); }

    /// The rectangles of the selection in points of the canvas.
    QList<QRectF> selectedParts() const
    {
        QList<QRectF> parts;
        for (const QQuickItem *item : edit()->parentItem()->childItems()) {
            if (item->objectName() == u"selected")
                parts.append(item->mapRectToItem(find(u"canvasContent"_s), QRectF(QPointF(), item->size())));
        }
        return parts;
    }

    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(&window(), key, modifiers);
    }

    /// The bar of the caret in points of the canvas.
    QRectF bar() const
    {
        const QQuickItem *const caret = find(u"caret"_s);
        return caret->mapRectToItem(find(u"canvasContent"_s), QRectF(QPointF(), caret->size()));
    }
};

} // namespace

class TextEditorTest : public QObject
{
    Q_OBJECT

private slots:
    void measures();
    void caretLiesOnTheLetters_data();
    void caretLiesOnTheLetters();
    void caretFollowsHigherLines();
    void bothDirections_data();
    void bothDirections();
    void everyLineHasItsDirection();
    void doubleClickPlacesTheCaret();
    void caretGoesToTheEnd();
    void typing();
    void emojiAreDeletedWhole();
    void noBreakSpacesStay();
    void pastedTextLosesItsFormat();
    void dragSelects();
    void outsideChangesKeepTheCaret();
    void backgroundClickEndsEditing();
    void emptySubtitleDisappears();
    void composedTextIsDrawn();
    void leavingTheCanvasKeepsTheText();
};

void TextEditorTest::measures()
{
    QCOMPARE(Coordinator::neededHeight(20), 40.0);
    QCOMPARE(Coordinator::neededHeight(60), 68.0);
    QCOMPARE(PlainText::withLineFeeds(u"a\r\nb\u2028c\fd"_s), u"a\n\nb\nc\nd"_s);

    Coordinator coordinator;
    coordinator.setFont(layoutFont(TextStyle::boxed, 32));
    const double letters = LineLayout(u"x"_s, TextStyle::boxed, 32).height();
    QCOMPARE(coordinator.caretBar({7, 100, 0, 60}), QRectF(7, 100 + (60 - letters - 4) / 2, 9, letters + 4));
    QCOMPARE(coordinator.caretBar({7, 100, 0, 20}), QRectF(7, 100, 4, 20));
}

void TextEditorTest::caretLiesOnTheLetters_data()
{
    QTest::addColumn<TextStyle>("style");
    QTest::addColumn<double>("scale");
    for (const TextStyle style : allTextStyles) {
        for (const double scale : {0.4, 1.0, 2.5})
            QTest::addRow("%s at %.1f", qPrintable(rawText(style)), scale) << style << scale;
    }
}

void TextEditorTest::caretLiesOnTheLetters()
{
    QFETCH(TextStyle, style);
    QFETCH(double, scale);

    const QString line =
        u"Wave 漢字 To 🎉 AVA 👩‍👩‍👧 ffi 日本 🇩🇪 ✓ ❤️ fill 한국 1️⃣ Ty 😀😀 ended Yo"_s;
    QVERIFY(line.size() >= 60);
    const QString text = QStringList(6, line).join(u'\n');
    TypingSession s(text);
    s.slide->setStyle(&SlideStyle::textStyle, style);
    s.mainBlock->setScale(scale);
    s.settle();

    const TextBlock &block = s.mainBlock->block();
    const double size = fontSize(style, s.mainBlock->containerSize().width());
    for (const int row : {0, 5}) {
        const QRectF box = block.lineBox(row);
        const auto lineStart = row * (line.size() + 1);
        for (qsizetype i = 0; i <= line.size(); ++i) {
            // Where a word ends, nothing after it moves its letters.
            if (i > 0 && i < line.size() && line[i] != u' ')
                continue;
            s.setCaret(static_cast<int>(lineStart + i));
            const double drawn = i == 0 ? 0 : LineLayout(line.first(i), style, size).width();
            const double expected = s.mainBlock->center().x() + scale * (box.left() + 8 + drawn);
            const double off = s.bar().left() - expected;
            QVERIFY2(std::abs(off) <= tolerance,
                     qPrintable(u"line %1, character %2: %3 points off"_s.arg(row).arg(i).arg(off)));
        }
        const double middle = s.mainBlock->center().y() + scale * box.center().y();
        QVERIFY(std::abs(s.bar().center().y() - middle) <= tolerance * std::max(1.0, scale));
    }
}

void TextEditorTest::caretFollowsHigherLines()
{
    const QStringList lines{u"Latin"_s,    u"မြန်မာဘာသာ"_s,   u"བོད་སྐད"_s,    u"漢字 😀"_s,
                            u"हिन्दी किं"_s, u"one\ttwo\t!"_s, u"ភាសាខ្មែរ"_s, u"end"_s};
    TypingSession s(lines.join(u'\n'));
    for (const TextStyle style : allTextStyles) {
        s.slide->setStyle(&SlideStyle::textStyle, style);
        s.settle();
        int start = 0;
        for (qsizetype row = 0; row < lines.size(); ++row) {
            const QRectF box = s.mainBlock->block().lineBox(row).translated(s.mainBlock->center());
            const auto end = start + static_cast<int>(lines[row].size());
            for (const auto &[position, x] : {std::pair(start, box.left() + 8), {end, box.right() - 8}}) {
                s.setCaret(position);
                const QPointF off(s.bar().left() - x, s.bar().center().y() - box.center().y());
                QVERIFY2(std::abs(off.x()) <= tolerance && std::abs(off.y()) <= tolerance,
                         qPrintable(u"line %1: %2, %3 points off"_s.arg(row).arg(off.x()).arg(off.y())));
            }
            start = end + 1;
        }
        QVERIFY(std::abs(s.mainBlock->editorHeight() - (s.mainBlock->block().size().height() - 1 + 8)) < 0.1);
    }
    // What is typed makes its line higher, and the caret's with it.
    s.type(u"မြ"_s);
    const QRectF last = s.mainBlock->block().lineBox(7).translated(s.mainBlock->center());
    QVERIFY(last.height() > s.mainBlock->block().lineBox(0).height() + 5);
    QVERIFY(std::abs(s.bar().center().y() - last.center().y()) <= tolerance);
}

void TextEditorTest::bothDirections_data()
{
    const auto row = table<QString>({"line"});
    row("Arabic in Latin", u"abc مرحبا, def"_s);
    row("Latin in Hebrew", u"שלום wave 123 עולם"_s);
    row("numbers", u"aשל9 ב.x"_s);
    row("Arabic at the end", u"one two مر"_s);
    row("Chinese and emoji in Arabic", u"سلام 漢字 👩‍👩‍👧 بلا"_s);
    row("Hindi and Hebrew", u"हिन्दी אב किं"_s);
    row("brackets", u"(ab) שלום (cd)"_s);
    row("one letter", u"a ב c"_s);
}

void TextEditorTest::bothDirections()
{
    QFETCH(QString, line);
    TypingSession s(u"first\n"_s + line + u"\nlast"_s);
    const int start = 6;
    const int end = start + static_cast<int>(line.size());
    const QRectF box = s.mainBlock->block().lineBox(1).translated(s.mainBlock->center());
    const double left = box.left() + 8;
    const double right = box.right() - 8;

    // A word that is selected has one rectangle, over what the painter draws of it.
    for (qsizetype at = 0; at < line.size();) {
        const QString word = line.sliced(at).section(u' ', 0, 0);
        if (std::ranges::all_of(
                word, [&](QChar c) { return QString(c).isRightToLeft() == word.isRightToLeft(); })) {
            QMetaObject::invokeMethod(s.edit(), "select", Q_ARG(int, start + static_cast<int>(at)),
                                      Q_ARG(int, start + static_cast<int>(at + word.size())));
            s.settle();
            const QList<QRectF> rectangles = s.selectedParts();
            QCOMPARE(rectangles.size(), 1);
            const QRectF part = rectangles.front();
            QVERIFY(std::abs(part.center().y() - box.center().y()) <= tolerance);
            QVERIFY2(differenceOfInk(line, word, part.left() - left) <= 0.15, qPrintable(word));
        }
        at += word.size() + 1;
    }

    // Steps to the right are steps to the right, from end to end, each over one letter.
    const bool runsLeft = line.isRightToLeft();
    QList<double> stops;
    for (s.setCaret(runsLeft ? end : start); s.caret() >= start && s.caret() <= end; s.key(Qt::Key_Right)) {
        stops.append(s.bar().left());
        QVERIFY2(stops.size() == 1 || stops.last() > stops[stops.size() - 2] + 0.5, qPrintable(line));
    }
    QVERIFY(std::abs(stops.first() - left) <= 1 && std::abs(stops.last() - right) <= 1);
    QCOMPARE(s.caret(), runsLeft ? start - 1 : end + 1);
    // And back over the same stops.
    s.setCaret(runsLeft ? end : start);
    for (qsizetype i = 1; i < stops.size(); ++i)
        s.key(Qt::Key_Right);
    for (; !stops.isEmpty(); stops.removeLast(), s.key(Qt::Key_Left))
        QVERIFY2(std::abs(s.bar().left() - stops.last()) < 0.2, qPrintable(QString::number(s.caret())));
    QCOMPARE(s.caret(), runsLeft ? end + 1 : start - 1);

    // A click puts the caret beside it.
    for (double x = left - 3; x < right + 3; x += 4.5) {
        const QPoint at = s.at(x / 360, box.center().y() / 640);
        QTest::mouseClick(&s.window(), Qt::LeftButton, {}, at);
        s.settle();
        QVERIFY2(std::abs(s.bar().left() - x) < 22, qPrintable(u"%1: %2"_s.arg(x).arg(s.bar().left())));
    }
}

void TextEditorTest::everyLineHasItsDirection()
{
    TypingSession s(u"abc\nשלום"_s);
    s.setCaret(4);
    const QRectF box = s.mainBlock->block().lineBox(1).translated(s.mainBlock->center());
    QVERIFY(std::abs(s.bar().left() - (box.right() - 8)) <= tolerance);
    s.key(Qt::Key_Left);
    QCOMPARE(s.caret(), 5);
    s.key(Qt::Key_End);
    QCOMPARE(s.caret(), 8);
    QVERIFY(std::abs(s.bar().left() - (box.left() + 8)) <= tolerance);
    s.key(Qt::Key_Home);
    QCOMPARE(s.caret(), 4);
    s.key(Qt::Key_Right);
    QCOMPARE(s.caret(), 3);
    // "abc م": two parts, since the letter stands at the other end of its word.
    s.slide->setText(u"abc مرحبا"_s);
    QMetaObject::invokeMethod(s.edit(), "select", Q_ARG(int, 0), Q_ARG(int, 5));
    s.settle();
    QCOMPARE(s.selectedParts().size(), 2);
    // What is typed turns a line round, and undoing turns it back.
    s.slide->setText(u"12"_s);
    s.setCaret(0);
    s.type(u"ש"_s);
    const QRectF typed = s.mainBlock->block().lineBox(0).translated(s.mainBlock->center());
    s.key(Qt::Key_Home);
    QVERIFY(std::abs(s.bar().left() - (typed.right() - 8)) <= tolerance);
    s.key(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(s.text(), u"12"_s);
    s.key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(s.text(), u"ש12"_s);
    s.key(Qt::Key_Home);
    QVERIFY(std::abs(s.bar().left() - (typed.right() - 8)) <= tolerance);
}

void TextEditorTest::doubleClickPlacesTheCaret()
{
    CanvasSession s;
    const double left = s.mainBlock->center().x() + s.mainBlock->block().lineBox(0).left() + 8;
    const double size = fontSize(TextStyle::classic, 360);
    const double third = LineLayout(u"Mai"_s, TextStyle::classic, size).width();
    const QPoint place = s.at(0, 0) + QPointF(left + third + 1, 320).toPoint();
    QTest::mouseDClick(&s.window(), Qt::LeftButton, {}, place);
    QTRY_VERIFY(s.find(u"textEdit"_s) && s.find(u"textEdit"_s)->hasActiveFocus());
    QCOMPARE(s.find(u"textEdit"_s)->property("cursorPosition").toInt(), 3);
    QCOMPARE(s.mainBlock->editorHeight(), std::max(40.0, s.mainBlock->block().size().height() - 1 + 8));
}

void TextEditorTest::caretGoesToTheEnd()
{
    TypingSession s(u"Ab\n🇩🇪👩‍👩‍👧"_s);
    QCOMPARE(s.caret(), s.text().size());
}

void TextEditorTest::typing()
{
    TypingSession s(u"One"_s);
    // Glyphs of its text, ten times their size, would cost hundreds of megabytes.
    QVERIFY(!s.edit()->flags().testFlag(QQuickItem::ItemHasContents));
    const QSizeF oneLine = s.mainBlock->frameSize();
    s.key(Qt::Key_Return);
    QCOMPARE(s.mainBlock->text(), u"One\n"_s);
    QVERIFY(s.mainBlock->frameSize().height() > 1.8 * oneLine.height());
    s.type(u"two"_s);
    s.key(Qt::Key_Escape);
    s.key(Qt::Key_Return, Qt::ShiftModifier);
    QCOMPARE(s.mainBlock->text(), u"One\ntwo\n"_s);
    const QRectF box = s.mainBlock->block().lineBox(2);
    QVERIFY(std::abs(s.bar().center().y() - (s.mainBlock->center().y() + box.center().y())) <= tolerance);
    s.key(Qt::Key_Backspace);
    s.key(Qt::Key_Tab);
    s.key(Qt::Key_Backspace);
    QVERIFY(s.mainBlock->isFocused());
    QCOMPARE(s.mainBlock->text(), u"One\ntwo"_s);
    QCOMPARE(s.slide->text(), u"One"_s);
    for (int i = 0; i < 10; ++i)
        s.key(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(s.mainBlock->text(), u"One"_s);
}

void TextEditorTest::emojiAreDeletedWhole()
{
    TypingSession s(u"a🇩🇪👩‍👩‍👧b"_s);
    s.key(Qt::Key_Left);
    s.key(Qt::Key_Left);
    s.key(Qt::Key_Left);
    QCOMPARE(s.caret(), 1);
    s.key(Qt::Key_Right);
    s.key(Qt::Key_Backspace);
    QCOMPARE(s.text(), u"a👩‍👩‍👧b"_s);
    s.key(Qt::Key_Delete);
    QCOMPARE(s.text(), u"ab"_s);
    s.key(Qt::Key_Z, Qt::ControlModifier);
    s.key(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(s.text(), u"a🇩🇪👩‍👩‍👧b"_s);

    s.setCaret(1);
    s.key(Qt::Key_Right, Qt::ShiftModifier);
    QCOMPARE(s.selected(), u"🇩🇪"_s);
    s.key(Qt::Key_Right, Qt::ShiftModifier);
    s.key(Qt::Key_Left, Qt::ShiftModifier);
    QCOMPARE(s.selected(), u"🇩🇪"_s);
    s.type(u"x"_s);
    QCOMPARE(s.text(), u"ax👩‍👩‍👧b"_s);
    s.key(Qt::Key_Backspace, Qt::ShiftModifier);
    QCOMPARE(s.text(), u"a👩‍👩‍👧b"_s);
}

void TextEditorTest::noBreakSpacesStay()
{
    TypingSession s(u"10\u00a0000\u00a0€"_s);
    s.type(u"!"_s);
    QCOMPARE(s.mainBlock->text(), u"10\u00a0000\u00a0€!"_s);
    s.key(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(s.mainBlock->text(), u"10\u00a0000\u00a0€"_s);
}

void TextEditorTest::pastedTextLosesItsFormat()
{
    TypingSession s(u"a"_s);
    auto *const data = new QMimeData;
    data->setHtml(u"<b style='font-size:80px'>bold</b><br>next"_s);
    data->setText(u"bold\nnext"_s);
    QGuiApplication::clipboard()->setMimeData(data);
    const double before = s.bar().height();
    s.key(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(s.mainBlock->text(), u"abold\nnext"_s);
    QCOMPARE(s.bar().height(), before);
    const QRectF box = s.mainBlock->block().lineBox(1);
    QVERIFY(std::abs(s.bar().left() - (s.mainBlock->center().x() + box.right() - 8)) <= tolerance);
    QVERIFY(std::abs(s.bar().center().y() - (s.mainBlock->center().y() + box.center().y())) <= tolerance);
    s.key(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(s.text(), u"a"_s);
}

void TextEditorTest::dragSelects()
{
    TypingSession s(u"Select me"_s);
    const QPoint from = s.at(0.2, 0.5);
    s.drag(from, {250, 0});
    s.drop(from + QPoint(250, 0));
    QCOMPARE(s.selected(), u"Select me"_s);
    QCOMPARE(s.mainBlock->position(), QPointF(0.5, 0.5));
    QVERIFY(!s.find(u"caret"_s));
}

void TextEditorTest::outsideChangesKeepTheCaret()
{
    TypingSession s(u"One two three"_s);
    QMetaObject::invokeMethod(s.edit(), "select", Q_ARG(int, 4), Q_ARG(int, 7));
    s.slide->setText(u"One TWO three!"_s);
    QCOMPARE(s.selected(), u"TWO"_s);
    QVERIFY(s.edit()->hasActiveFocus());
    s.slide->setText(u"One T"_s);
    QCOMPARE(s.selected(), u"T"_s);
    QCOMPARE(s.caret(), 5);
}

void TextEditorTest::backgroundClickEndsEditing()
{
    TypingSession s(u"One"_s);
    s.type(u"!"_s);
    QTest::mouseClick(&s.window(), Qt::LeftButton, {}, s.at(0.5, 0.1));
    QTRY_VERIFY(!s.mainBlock->isFocused());
    QCOMPARE(s.slide->text(), u"One!"_s);
    QVERIFY(!s.find(u"textEdit"_s));
    s.drag(s.at(0.5, 0.5), {36, 0});
    s.drop(s.at(0.5, 0.5) + QPoint(36, 0));
    QCOMPARE(s.mainBlock->position(), QPointF(0.6, 0.5));
}

void TextEditorTest::emptySubtitleDisappears()
{
    CanvasSession s(u"ab"_s);
    s.subtitleBlock->startEditing();
    QTRY_VERIFY(s.find(u"textEdit"_s) && s.find(u"textEdit"_s)->hasActiveFocus());
    QTest::keyClick(&s.window(), Qt::Key_Backspace);
    QVERIFY(s.find(u"subtitleDrawing"_s));
    QTest::keyClick(&s.window(), Qt::Key_Backspace);
    s.settle();
    QVERIFY(!s.find(u"subtitleDrawing"_s));
    QVERIFY(!s.find(u"textEdit"_s));
    QCOMPARE(s.slide->subtitle(), u"ab"_s);
    s.root->findChild<SlideCanvasView *>()->commit();
    s.settle();
    QCOMPARE(s.slide->subtitle(), QString());
    s.slide->setSubtitle(u"back"_s);
    s.settle();
    QVERIFY(s.find(u"subtitleDrawing"_s));
    QVERIFY(!s.find(u"textEdit"_s));
}

void TextEditorTest::composedTextIsDrawn()
{
    TypingSession s(u"日"_s);
    const double before = s.mainBlock->block().size().width();
    QInputMethodEvent composing(u"ほん"_s, {});
    QCoreApplication::sendEvent(s.edit(), &composing);
    QCOMPARE(s.mainBlock->text(), u"日"_s);
    QVERIFY(s.mainBlock->block().size().width() > before + 20);
    QInputMethodEvent committing;
    committing.setCommitString(u"本"_s);
    QCoreApplication::sendEvent(s.edit(), &committing);
    QCOMPARE(s.mainBlock->text(), u"日本"_s);
    QCOMPARE(s.mainBlock->block().lineCount(), 1);
    QCOMPARE(s.mainBlock->block().size().width(),
             TextBlock(u"日本"_s, TextStyle::classic, false, {}, 360).size().width());
}

void TextEditorTest::leavingTheCanvasKeepsTheText()
{
    QPointer<Slide> slide;
    auto s = std::make_unique<TypingSession>(u"One"_s);
    slide = s->slide;
    s->type(u" more"_s);
    delete s->root;
    QCOMPARE(slide->text(), u"One more"_s);
}

int main(int argc, char **argv)
{
    return runEditorTest<TextEditorTest>(argc, argv);
}

#include "tst_text_editor.moc"
