#include "render/text/line_layout.h"

#include "render/text/emoji_picture.h"
#include "render/text/emoji_runs.h"
#include "render/text/fallback_fonts.h"

#include <QtCore/QtEndian>
#include <QtGui/QFontMetricsF>
#include <QtGui/QGlyphRun>
#include <QtGui/QPaintDevice>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtGui/QRawFont>
#include <QtGui/QTextLayout>

#include <unicode/uchar.h>
#include <unicode/uscript.h>

#include <algorithm>
#include <array>
#include <string_view>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

bool isAscii(QStringView text)
{
    return std::ranges::all_of(text, [](QChar unit) { return unit < u'\x7F'; });
}

/// Whether the emoji font draws the run: an unknown newer emoji is left to the fallback fonts.
bool isDrawable(const QRawFont &emojiFont, QStringView run)
{
    for (const uint character : run.toUcs4()) {
        const bool tag = character >= 0xE0020 && character <= 0xE007F;
        const bool invisible = character == 0xFE0F || character == 0x200D || tag;
        if (!invisible && !emojiFont.supportsCharacter(character))
            return false;
    }
    return true;
}

/// What is laid out of a line.
QString shownPart(const QString &text)
{
    if (text.isEmpty())
        return u" "_s;
    if (text.size() <= LineLayout::longestLine)
        return text;
    const qsizetype start = (text.size() - LineLayout::longestLine) / 2;
    const bool splitsPair = text[start].isLowSurrogate();
    return text.sliced(start + (splitsPair ? 1 : 0), LineLayout::longestLine);
}

// Every font begins with what stands for a letter that it lacks.
constexpr quint32 missingGlyph = 0;

/// Whether no font at all was found for a script. What Qt gives then has no size and no name, and must not be
/// asked for its letters.
bool isPlaceholder(const QRawFont &font)
{
    return !font.isValid() || font.pixelSize() <= 0;
}

bool isEmojiFont(const QRawFont &font)
{
    return !isPlaceholder(font) && font.familyName() == "Noto Color Emoji"_L1;
}

/// What other fonts than the text font draw of a line, emoji apart.
enum class Others { none, symbols, scripts };

/// Whether characters of `script` are at home among those of the text fonts, and fit into their lines.
bool isAtHome(UScriptCode script)
{
    return script == USCRIPT_COMMON || script == USCRIPT_INHERITED || script == USCRIPT_LATIN ||
           script == USCRIPT_BRAILLE || script == USCRIPT_GREEK || script == USCRIPT_CYRILLIC ||
           script == USCRIPT_UNKNOWN;
}

Others othersIn(const QString &text, const QRawFont &textFont)
{
    if (isAscii(text))
        return Others::none;
    QString letters;
    qsizetype from = 0;
    for (const TextRun &run : emojiRuns(text)) {
        letters += QStringView(text).sliced(from, run.start - from);
        from = run.start + run.length;
    }
    letters += QStringView(text).sliced(from);
    Others others = Others::none;
    for (const uint character : letters.toUcs4()) {
        if (character < 0x20 || textFont.supportsCharacter(character))
            continue;
        UErrorCode error = U_ZERO_ERROR;
        if (!isAtHome(uscript_getScript(static_cast<UChar32>(character), &error)))
            return Others::scripts;
        others = Others::symbols;
    }
    return others;
}

/// Whether `character` is one of the mathematical letters that are bold by nature.
bool isBold(char32_t character)
{
    if (character < 0x1D400 || character > 0x1D7FF)
        return false;
    std::array<char, 64> name{};
    UErrorCode error = U_ZERO_ERROR;
    u_charName(static_cast<UChar32>(character), U_UNICODE_CHAR_NAME, name.data(), name.size(), &error);
    return std::string_view(name.data()).find(" BOLD ") != std::string_view::npos;
}

/// The length of the part of `text` from `start` on that is bold by nature, or of that which is not.
qsizetype evenlyBold(const QString &text, qsizetype start)
{
    const QList<uint> characters = QStringView(text).sliced(start).toUcs4();
    const bool bold = isBold(characters.front());
    qsizetype length = 0;
    for (const uint character : characters) {
        if (isBold(character) != bold)
            break;
        length += character > 0xFFFF ? 2 : 1;
    }
    return length;
}

/// Whether `font` is a light one. All text styles are bold, but not every script has a bold font.
bool isLight(const QRawFont &font)
{
    if (isPlaceholder(font) || isEmojiFont(font))
        return false;
    const QByteArray measures = font.fontTable("OS/2");
    constexpr qsizetype weightAt = 4;
    return measures.size() >= weightAt + 2 &&
           qFromBigEndian<quint16>(measures.constData() + weightAt) < QFont::DemiBold;
}

// Of the font's size; about the difference between a regular and a bold face.
constexpr double addedBoldness = 0.05;

/// Adds an empty box for a letter that no font has. It stands on the baseline at `position`.
void addMissingLetter(QPainterPath &outlines, QPointF position, double fontSize)
{
    const QRectF box(position.x() + 0.08 * fontSize, position.y() - 0.7 * fontSize, 0.44 * fontSize,
                     0.7 * fontSize);
    const double stroke = 0.06 * fontSize;
    QPainterPath hole;
    hole.addRect(box.adjusted(stroke, stroke, -stroke, -stroke));
    outlines.addRect(box);
    outlines.addPath(hole.toReversed());
}

} // namespace

QList<QTextLayout::FormatRange> emojiFormats(const QString &text, double size)
{
    const QList<TextRun> runs = emojiRuns(text);
    if (runs.isEmpty())
        return {};
    QTextCharFormat format;
    format.setFont(emojiLayoutFont(size));
    const QRawFont emojiFont = QRawFont::fromFont(format.font());
    QList<QTextLayout::FormatRange> formats;
    for (const TextRun &run : runs) {
        if (!isDrawable(emojiFont, QStringView(text).sliced(run.start, run.length)))
            continue;
        // Many ranges side by side would take the layout quadratic time.
        if (!formats.isEmpty() && formats.last().start + formats.last().length == run.start)
            formats.last().length += static_cast<int>(run.length);
        else
            formats.append({static_cast<int>(run.start), static_cast<int>(run.length), format});
    }
    return formats;
}

QList<QTextLayout::FormatRange> lineFormats(const QString &text, const QFont &font)
{
    if (isAscii(text))
        return {};
    const QRawFont textFont = QRawFont::fromFont(font);
    QList<QTextLayout::FormatRange> formats;
    const auto appendFallbacks = [&](int from, int to) {
        for (const FallbackRun &fallback : fallbackRuns(text.sliced(from, to - from), textFont)) {
            QTextCharFormat format;
            format.setFont(fallbackLayoutFont(font, fallback.family));
            formats.append(
                {from + static_cast<int>(fallback.run.start), static_cast<int>(fallback.run.length), format});
        }
    };
    int from = 0;
    for (const QTextLayout::FormatRange &emoji : emojiFormats(text, font.pixelSize() / layoutFactor)) {
        appendFallbacks(from, emoji.start);
        formats.append(emoji);
        from = emoji.start + emoji.length;
    }
    appendFallbacks(from, static_cast<int>(text.size()));
    return formats;
}

double lineHeight(const QString &text, const QFont &font, double plainHeight)
{
    const bool isPlain = othersIn(text, QRawFont::fromFont(font)) == Others::none;
    return isPlain ? plainHeight : LineLayout(text, font).height();
}

double tabStopDistance(const QFont &font)
{
    return 8 * QFontMetricsF(font).horizontalAdvance(u' ');
}

LineLayout::LineLayout(const QString &text, TextStyle style, double size)
    : LineLayout(text, layoutFont(style, size))
{}

LineLayout::LineLayout(const QString &text, const QFont &font)
{
    const QFontMetricsF metrics(font);
    m_ascent = metrics.ascent() / layoutFactor;
    m_height = metrics.height() / layoutFactor;
    m_fontSize = font.pixelSize();

    const QString shown = shownPart(text);
    QTextLayout layout(shown, font);
    QTextOption option;
    option.setUseDesignMetrics(true);
    option.setWrapMode(QTextOption::NoWrap);
    option.setTabStopDistance(tabStopDistance(font));
    layout.setTextOption(option);
    layout.setFormats(lineFormats(shown, font));
    layout.beginLayout();
    QTextLine line = layout.createLine();
    line.setLineWidth(1e9);
    layout.endLayout();

    for (qsizetype start = 0; start < shown.size();) {
        const qsizetype length = evenlyBold(shown, start);
        const bool isBoldPart = isBold(QStringView(shown).sliced(start).toUcs4().front());
        for (const QGlyphRun &run : layout.glyphRuns(static_cast<int>(start), static_cast<int>(length)))
            m_runs.push_back({run, !isBoldPart && isLight(run.rawFont()) ? addedBoldness * m_fontSize : 0});
        start += length;
    }
    if (std::ranges::any_of(m_runs, [](const Run &run) { return isEmojiFont(run.glyphs.rawFont()); }))
        nameEmoji(shown, layout);
    const QRawFont textFont = QRawFont::fromFont(font);
    const Others others = othersIn(shown, textFont);
    // The text fonts hardly reach beyond an advance.
    m_width = (others == Others::scripts ? line.horizontalAdvance() : line.naturalTextWidth()) / layoutFactor;
    if (others != Others::none)
        makeRoom(textFont, line.ascent(), others == Others::scripts);
    const QPointF shift(-line.naturalTextRect().left(), m_ascent * layoutFactor - line.ascent());
    for (auto &[run, pen] : m_runs) {
        QList<QPointF> positions = run.positions();
        for (QPointF &position : positions)
            position += shift;
        run.setPositions(positions);
    }
}

void LineLayout::nameEmoji(const QString &text, const QTextLayout &layout)
{
    QSet<QStringView> named;
    for (const TextRun &run : emojiRuns(text)) {
        const QStringView emoji = QStringView(text).sliced(run.start, run.length);
        if (named.contains(emoji))
            continue;
        named.insert(emoji);
        const QList<QGlyphRun> drawn =
            layout.glyphRuns(static_cast<int>(run.start), static_cast<int>(run.length));
        if (drawn.size() == 1 && drawn[0].glyphIndexes().size() == 1)
            m_emoji.insert(drawn[0].glyphIndexes()[0], emoji.toString());
    }
}

void LineLayout::makeRoom(const QRawFont &textFont, double baseline, bool wholeFonts)
{
    double ascent = m_ascent * layoutFactor;
    double descent = m_height * layoutFactor - ascent;
    for (const auto &[run, pen] : m_runs) {
        const QRawFont font = run.rawFont();
        if (isPlaceholder(font) || isEmojiFont(font) || font.familyName() == textFont.familyName())
            continue;
        if (wholeFonts) {
            ascent = std::max(ascent, font.ascent());
            descent = std::max(descent, font.descent());
        }
        // Stacked letters and marks reach beyond the measures of their own font.
        const QList<quint32> glyphs = run.glyphIndexes();
        const QList<QPointF> positions = run.positions();
        for (qsizetype i = 0; i < glyphs.size(); ++i) {
            const QRectF ink = font.boundingRect(glyphs[i]).translated(0, positions[i].y() - baseline);
            ascent = std::max(ascent, pen / 2 - ink.top());
            descent = std::max(descent, ink.bottom() + pen / 2);
        }
    }
    m_ascent = ascent / layoutFactor;
    m_height = (ascent + descent) / layoutFactor;
}

void LineLayout::draw(QPainter &painter, const QColor &colour) const
{
    painter.save();
    painter.scale(1 / layoutFactor, 1 / layoutFactor);
    painter.setPen(colour);
    const QRectF device(0, 0, painter.device()->width(), painter.device()->height());
    const QRectF shown = painter.combinedTransform().inverted().mapRect(device);
    for (const auto &[run, pen] : m_runs) {
        const QRawFont font = run.rawFont();
        if (isEmojiFont(font)) {
            drawEmojiRun(painter, run, m_emoji);
            continue;
        }
        const bool hasLetters = !isPlaceholder(font);
        QPainterPath outlines;
        outlines.setFillRule(Qt::WindingFill);
        // The widest ligatures take about ten times the font's size.
        const double margin = 16 * m_fontSize;
        const QList<quint32> glyphs = run.glyphIndexes();
        const QList<QPointF> positions = run.positions();
        for (qsizetype i = 0; i < glyphs.size(); ++i) {
            const double x = positions[i].x();
            if (x + margin < shown.left() || x - margin > shown.right())
                continue;
            if (hasLetters && glyphs[i] != missingGlyph)
                outlines.addPath(font.pathForGlyph(glyphs[i]).translated(positions[i]));
            else
                addMissingLetter(outlines, positions[i], m_fontSize);
        }
        painter.fillPath(outlines, colour);
        if (pen > 0)
            painter.strokePath(outlines, QPen(colour, pen, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin));
    }
    painter.restore();
}

} // namespace mosslantern
