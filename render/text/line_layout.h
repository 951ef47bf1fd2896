#pragma once

#include "render/text/fonts.h"

#include <QtCore/QHash>
#include <QtGui/QTextLayout>

#include <vector>

class QPainter;

namespace mosslantern {

/// One line of text, shaped: kerning, ligatures, right-to-left order, fallback fonts, emoji in colour.
/// Measures are in points at text scale 1.
class LineLayout
{
public:
    static constexpr qsizetype longestLine = 4000;

    /// An empty `text` is laid out as one space. `size` is the font size in points. Of a line of more than
    /// longestLine UTF-16 units only the middle counts: no canvas shows more, and time and memory stay
    /// bounded.
    LineLayout(const QString &text, TextStyle style, double size);

    /// The same in `font`, which is as layoutFont() gives it.
    LineLayout(const QString &text, const QFont &font);

    /// Advance width of the whole line; without what the last letter of another script draws beyond its
    /// advance.
    [[nodiscard]] double width() const { return m_width; }

    /// The baseline below the top of the line: the greatest ascent of the text font and, in a line with other
    /// scripts, of the fonts that draw them. Symbols count only where they stand out, emoji never.
    [[nodiscard]] double ascent() const { return m_ascent; }

    /// The ascent and the greatest descent: nothing that the line holds, stacked marks of the text font
    /// apart, is drawn above or below it.
    [[nodiscard]] double height() const { return m_height; }

    /// Draws the line with its top left at the painter's origin, one unit a point: letters as outlines in
    /// `colour`, emoji as pictures, letters that no font has as empty boxes. The painter's transformation
    /// sets the final scale.
    void draw(QPainter &painter, const QColor &colour) const;

private:
    /// Makes room for what other fonts than `textFont` draw on `baseline`; `wholeFonts`: for all that they
    /// could draw.
    void makeRoom(const QRawFont &textFont, double baseline, bool wholeFonts);

    /// Learns which emoji of `text` a glyph stands for.
    void nameEmoji(const QString &text, const QTextLayout &layout);

    struct Run
    {
        QGlyphRun glyphs;
        double pen = 0; // drawn along the outlines of a light font's letters, to make them bolder
    };

    std::vector<Run> m_runs;
    QHash<quint32, QString> m_emoji; // what the glyphs of the emoji font stand for
    double m_width = 0;
    double m_ascent = 0;
    double m_height = 0;
    double m_fontSize = 0; // in units of the layout
};

/// The height of a line of `text`, laid out only where another font may make it higher than one that the text
/// font alone draws, which is `plainHeight`.
[[nodiscard]] double lineHeight(const QString &text, const QFont &font, double plainHeight);

/// From one tab stop to the next in units of the layout: eight spaces.
[[nodiscard]] double tabStopDistance(const QFont &font);

/// The formats that give the emoji of `text` the emoji font.
[[nodiscard]] QList<QTextLayout::FormatRange> emojiFormats(const QString &text, double size);

/// The formats that give the emoji of `text`, and the letters that `font` lacks, their fonts: the painter's
/// and the text editor's one rule.
[[nodiscard]] QList<QTextLayout::FormatRange> lineFormats(const QString &text, const QFont &font);

} // namespace mosslantern
