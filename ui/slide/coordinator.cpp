#include "ui/slide/coordinator.h"

#include "model/change.h"
#include "model/line_breaks.h"
#include "render/text/emoji_runs.h"
#include "render/text/fonts.h"
#include "render/text/line_layout.h"
#include "ui/common/line_highlighter.h"
#include "ui/common/plain_text.h"

#include <QtCore/QScopedValueRollback>
#include <QtGui/QAbstractTextDocumentLayout>
#include <QtGui/QFontMetricsF>
#include <QtGui/QGuiApplication>
#include <QtGui/QStyleHints>
#include <QtGui/QTextBlock>
#include <QtGui/QTextCursor>
#include <QtQuick/QQuickItem>

#include <algorithm>

namespace mosslantern {

namespace {

constexpr double leastHeight = 40;
constexpr double heightMargin = 8;

/// Qt puts the baseline of a line of fixed height there, whatever its font.
constexpr double baselineShare = 0.8;

} // namespace

Coordinator::Coordinator(QObject *parent)
    : QObject(parent)
{}

QTextDocument *Coordinator::document() const
{
    return m_textDocument ? m_textDocument->textDocument() : nullptr;
}

void Coordinator::setTextDocument(QQuickTextDocument *textDocument)
{
    if (m_textDocument == textDocument)
        return;
    Q_ASSERT(!m_textDocument);
    m_textDocument = textDocument;
    m_highlighter = new LineHighlighter(this);
    m_highlighter->setTextDocument(m_textDocument);
    connect(document(), &QTextDocument::contentsChange, this, [this](int position, int, int added) {
        if (!m_isFormatting)
            formatBlocks(position, position + added, true);
    });
    formatAll();
    showOrHideText();
    emit textDocumentChanged();
}

void Coordinator::setFont(const QFont &font)
{
    if (m_font == font)
        return;
    m_font = font;
    formatAll();
    emit fontChanged();
}

void Coordinator::setLineSpacing(double spacing)
{
    if (m_lineSpacing == spacing)
        return;
    m_lineSpacing = spacing;
    formatAll();
    emit fontChanged();
}

void Coordinator::setDrawsText(bool drawsText)
{
    if (m_drawsText == drawsText)
        return;
    m_drawsText = drawsText;
    showOrHideText();
    emit drawsTextChanged();
}

void Coordinator::showOrHideText()
{
    // The glyphs of emoji alone, at the size of the document, would take hundreds of megabytes.
    if (auto *const item = m_textDocument ? qobject_cast<QQuickItem *>(m_textDocument->parent()) : nullptr)
        item->setFlag(QQuickItem::ItemHasContents, m_drawsText);
}

double Coordinator::factor()
{
    return layoutFactor;
}

int Coordinator::blinkInterval()
{
    return QGuiApplication::styleHints()->cursorFlashTime() / 2;
}

double Coordinator::plainLineHeight() const
{
    return QFontMetricsF(m_font).height() / layoutFactor;
}

double Coordinator::tabStopDistance() const
{
    return mosslantern::tabStopDistance(m_font);
}

double Coordinator::baselineShift() const
{
    return QFontMetricsF(m_font).ascent() / layoutFactor -
           baselineShare * (plainLineHeight() + m_lineSpacing);
}

void Coordinator::replaceText(const QString &text)
{
    if (!document())
        return;
    const QScopedValueRollback formatting(m_isFormatting, true);
    document()->setUndoRedoEnabled(false);
    QTextCursor cursor(document());
    cursor.select(QTextCursor::Document);
    cursor.insertText(PlainText::withLineFeeds(text));
    document()->setUndoRedoEnabled(true);
    formatAll();
}

void Coordinator::formatAll()
{
    if (!document() || m_font.pixelSize() <= 0)
        return;
    const QScopedValueRollback formatting(m_isFormatting, true);
    m_highlighter->setFont(m_font);
    document()->setUndoRedoEnabled(false);
    formatBlocks(0, document()->characterCount(), false);
    document()->setUndoRedoEnabled(true);
}

QTextBlockFormat Coordinator::formatOf(const QTextBlock &block) const
{
    const double plainHeight = plainLineHeight();
    double letters = 0;
    for (const QString &line : splitLines(block.text()))
        letters = std::max(letters, lineHeight(line, m_font, plainHeight));
    QTextBlockFormat format = block.blockFormat();
    format.setLineHeight((letters + m_lineSpacing) * layoutFactor, QTextBlockFormat::FixedHeight);
    // Of itself, all lines of a document run like the first one.
    format.setLayoutDirection(block.text().isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
    return format;
}

void Coordinator::formatBlocks(int from, int to, bool joinsTyping)
{
    const QScopedValueRollback formatting(m_isFormatting, true);
    for (QTextBlock block = document()->findBlock(from); block.isValid() && block.position() <= to;
         block = block.next()) {
        const QTextBlockFormat format = formatOf(block);
        if (format == block.blockFormat())
            continue;
        QTextCursor cursor(block);
        if (joinsTyping)
            cursor.joinPreviousEditBlock();
        cursor.setBlockFormat(format);
        if (joinsTyping)
            cursor.endEditBlock();
    }
}

bool Coordinator::isFormatted() const
{
    for (QTextBlock block = document()->firstBlock(); block.isValid(); block = block.next()) {
        if (formatOf(block) != block.blockFormat())
            return false;
    }
    return true;
}

void Coordinator::travel(const char *step, bool (QTextDocument::*isPossible)() const)
{
    // Qt joins formats with what was pasted, but not with single letters: those take two steps.
    const QScopedValueRollback formatting(m_isFormatting, true);
    do
        QMetaObject::invokeMethod(m_textDocument->parent(), step);
    while (!isFormatted() && (document()->*isPossible)());
}

void Coordinator::undo()
{
    travel("undo", &QTextDocument::isUndoAvailable);
}

void Coordinator::redo()
{
    travel("redo", &QTextDocument::isRedoAvailable);
}

double Coordinator::neededHeight(double laidOut)
{
    return std::max(leastHeight, laidOut + heightMargin);
}

QRectF Coordinator::line(int position) const
{
    if (!document())
        return {};
    const QTextBlock wanted = document()->findBlock(position);
    const double height = wanted.blockFormat().lineHeight();
    // A paragraph may have line breaks of its own.
    const auto breaks = wanted.text().left(position - wanted.position()).count(u'\u2028');
    double top = static_cast<double>(breaks) * height;
    for (QTextBlock block = document()->firstBlock(); block.isValid() && block != wanted;
         block = block.next())
        top += block.blockFormat().lineHeight() * static_cast<double>(block.text().count(u'\u2028') + 1);
    return {0, top / layoutFactor, 0, height / layoutFactor};
}

QRectF Coordinator::caretBar(const QRectF &place) const
{
    const QFontMetricsF metrics(m_font);
    const double letters = (metrics.ascent() + metrics.descent()) / layoutFactor;
    const double width = std::max(0.15 * place.height(), 4.0);
    const double height = std::min(letters + 4, place.height());
    return {place.left(), place.top() + (place.height() - height) / 2, width, height};
}

Coordinator::Line Coordinator::lineOf(int position) const
{
    const QTextBlock block = document()->findBlock(position);
    // Lays it out.
    static_cast<void>(document()->documentLayout()->blockBoundingRect(block));
    QTextLayout *const layout = block.layout();
    return {block.text(), block.position(), layout, layout->lineForTextPosition(position - block.position())};
}

void Coordinator::hold(int position)
{
    change(*this, m_heldPosition, position, &Coordinator::heldPositionChanged);
}

double Coordinator::caretAside(int position, int heldPosition) const
{
    if (!document() || position < 0 || position >= document()->characterCount())
        return 0;
    const Line place = lineOf(position);
    if (!place.isWhole())
        return 0;
    const int inLayout = position - place.start;
    const CaretLine carets = place.carets();
    return carets.isMixed() ? carets.x({inLayout, position == heldPosition}) - place.line.cursorToX(inLayout)
                            : 0;
}

int Coordinator::moveBeside(int position, bool toRight)
{
    const Line place = lineOf(position);
    if (!place.isWhole())
        return -1;
    const CaretLine carets = place.carets();
    if (!carets.isMixed())
        return -1;
    if (const auto next = carets.beside({position - place.start, position == m_heldPosition}, toRight)) {
        hold(next->isBeforeNext ? place.start + next->position : -1);
        return place.start + next->position;
    }
    releaseCaret();
    const bool runsLeft = place.layout->textOption().textDirection() == Qt::RightToLeft;
    const int lineStart = place.start + place.line.textStart();
    const int beyond = toRight == runsLeft ? lineStart - 1 : lineStart + place.line.textLength() + 1;
    return std::clamp(beyond, 0, document()->characterCount() - 1);
}

int Coordinator::moveNear(int position, double aside)
{
    const Line place = lineOf(position);
    if (!place.isWhole())
        return position;
    const CaretLine carets = place.carets();
    if (!carets.isMixed())
        return position;
    const auto nearest = carets.nearest(place.line.cursorToX(position - place.start) + aside);
    hold(nearest.isBeforeNext ? place.start + nearest.position : -1);
    return place.start + nearest.position;
}

QList<QRectF> Coordinator::selection(int start, int end) const
{
    if (!document() || start >= end)
        return {};
    const Line first = lineOf(start);
    if (!first.isWhole())
        return {};
    const double origin = first.x(first.line.cursorToX(start - first.start));
    QList<QRectF> rectangles;
    for (int from = start; from < end;) {
        const Line place = lineOf(from);
        if (!place.isWhole())
            break;
        const int lineEnd = place.line.textStart() + place.line.textLength();
        const int to = std::min(end - place.start, lineEnd);
        const QRectF height = line(from);
        for (const auto &[left, right] : place.carets().selected(from - place.start, to)) {
            const double width = std::max(2.0, (right - left) / layoutFactor);
            rectangles.append({(place.x(left) - origin) / layoutFactor, height.y(), width, height.height()});
        }
        from = std::max(from + 1, place.start + (lineEnd < place.text.size() ? lineEnd : lineEnd + 1));
    }
    return rectangles;
}

QString Coordinator::text() const
{
    return PlainText::of(m_textDocument);
}

int Coordinator::startOfEmojiBefore(int position) const
{
    for (const TextRun &run : emojiRuns(text())) {
        if (run.start + run.length == position)
            return static_cast<int>(run.start);
    }
    return position;
}

int Coordinator::endOfEmojiAfter(int position) const
{
    for (const TextRun &run : emojiRuns(text())) {
        if (run.start == position)
            return static_cast<int>(run.start + run.length);
    }
    return position;
}

int Coordinator::caretPosition(int from, int to) const
{
    for (const TextRun &run : emojiRuns(text())) {
        const auto start = static_cast<int>(run.start);
        const auto end = static_cast<int>(run.start + run.length);
        if (to > start && to < end)
            return from <= start ? end : start;
    }
    return to;
}

} // namespace mosslantern
