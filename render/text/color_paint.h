#pragma once

#include <QtGui/QBrush>
#include <QtGui/QRawFont>
#include <QtGui/QTransform>

#include <optional>

class QPainter;

namespace mosslantern {

/// The pictures that a font's table COLR (version 1) describes: trees of paints, whose leaves fill outlines
/// with colours and gradients. The font comes with the program and is taken as sound.
class ColorPaint
{
public:
    /// `font`: at one pixel for each of its units.
    explicit ColorPaint(const QRawFont &font);

    /// The place in the table of what a glyph looks like; none of glyphs without colours.
    [[nodiscard]] std::optional<qsizetype> paintOf(quint32 glyph) const;

    /// Draws the paint at that place on an image. `toDevice` leads from units of the font, y upwards, to
    /// pixels.
    void draw(QPainter &painter, qsizetype paint, const QTransform &toDevice) const;

private:
    void drawComposite(QPainter &painter, qsizetype paint, const QTransform &toDevice) const;
    QBrush fill(qsizetype paint) const;
    QColor color(qsizetype entryAndAlpha) const;
    QGradientStops stops(qsizetype colorLine) const;
    QTransform transform(qsizetype paint) const;

    quint8 byte(qsizetype at) const { return static_cast<quint8>(m_layers[at]); }
    quint16 unsigned16(qsizetype at) const;
    quint32 unsigned32(qsizetype at) const;
    qint16 signed16(qsizetype at) const { return static_cast<qint16>(unsigned16(at)); }
    double fraction(qsizetype at) const;
    QPointF point(qsizetype at) const;
    /// Where the paint's field of three bytes leads.
    qsizetype child(qsizetype paint, qsizetype field) const;

    QRawFont m_font;
    QByteArray m_layers;
    QByteArray m_palette;
};

} // namespace mosslantern
