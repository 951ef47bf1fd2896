#pragma once

#include "render/text/color_paint.h"

#include <memory>

struct hb_font_t;

namespace mosslantern {

/// A font whose glyphs are coloured outlines, some over others.
class ColorFont
{
public:
    /// `file`: a whole font file, WOFF2 included. One that the system cannot read has no glyphs.
    explicit ColorFont(const QByteArray &file);

    /// The coloured glyph that stands for the whole of `text`; none when the font has none.
    [[nodiscard]] std::optional<quint32> glyphOf(const QString &text) const;

    /// Draws a glyph that glyphOf() gave: its box, as wide as its advance and as high as the font, becomes
    /// the unit square, which `toDevice` leads to pixels.
    void draw(QPainter &painter, quint32 glyph, const QTransform &toDevice) const;

private:
    struct ShaperDeleter
    {
        void operator()(hb_font_t *font) const;
    };

    QRawFont m_font; // at one pixel for each unit
    ColorPaint m_paint;
    std::unique_ptr<hb_font_t, ShaperDeleter> m_shaper;
};

} // namespace mosslantern
