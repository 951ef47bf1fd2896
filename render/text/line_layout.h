#pragma once

#include "render/text/fonts.h"

#include <QtGui/QTextLayout>

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

    /// Advance width of the whole line.
    [[nodiscard]] double width() const { return m_width; }

    /// Ascent of the style's text font: the baseline below the top of the line, whatever the line holds.
    [[nodiscard]] double ascent() const { return m_ascent; }

    /// Ascent and descent of the style's text font.
    [[nodiscard]] double height() const { return m_height; }

    /// Draws the line with its top left at the painter's origin, one unit a point: letters as outlines in
    /// `colour`, emoji as pictures, letters that no font has as empty boxes. The painter's transformation
    /// sets the final scale.
    void draw(QPainter &painter, const QColor &colour) const;

private:
    QList<QGlyphRun> m_runs;
    double m_width = 0;
    double m_ascent = 0;
    double m_height = 0;
    double m_fontSize = 0; // in units of the layout
};

/// The formats that give the emoji of `text` the emoji font: the painter's and the text editor's one rule.
[[nodiscard]] QList<QTextLayout::FormatRange> emojiFormats(const QString &text, double size);

} // namespace mosslantern
