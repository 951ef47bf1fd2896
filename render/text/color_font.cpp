#include "render/text/color_font.h"

#include <QtGui/QPainter>

#include <hb.h>

#include <array>

namespace mosslantern {

namespace {

// Fonts of another number of units do not exist among those that come with the program.
constexpr double unitsPerEm = 1024;

hb_blob_t *tableOf(hb_face_t *, hb_tag_t tag, void *font)
{
    std::array<char, 5> name{};
    hb_tag_to_string(tag, name.data());
    const QByteArray table = static_cast<const QRawFont *>(font)->fontTable(name.data());
    return hb_blob_create(table.constData(), static_cast<unsigned>(table.size()), HB_MEMORY_MODE_DUPLICATE,
                          nullptr, nullptr);
}

hb_font_t *shaperOf(const QRawFont &font)
{
    hb_face_t *const face = hb_face_create_for_tables(
        tableOf, new QRawFont(font), [](void *copy) { delete static_cast<QRawFont *>(copy); });
    hb_font_t *const shaper = hb_font_create(face);
    hb_face_destroy(face);
    return shaper;
}

} // namespace

void ColorFont::ShaperDeleter::operator()(hb_font_t *font) const
{
    hb_font_destroy(font);
}

ColorFont::ColorFont(const QByteArray &file)
    : m_font(file, unitsPerEm, QFont::PreferNoHinting)
    , m_paint(m_font)
    , m_shaper(shaperOf(m_font))
{}

std::optional<quint32> ColorFont::glyphOf(const QString &text) const
{
    hb_buffer_t *const buffer = hb_buffer_create();
    hb_buffer_set_flags(buffer, HB_BUFFER_FLAG_REMOVE_DEFAULT_IGNORABLES);
    const auto length = static_cast<int>(text.size());
    hb_buffer_add_utf16(buffer, text.utf16(), length, 0, length);
    hb_buffer_guess_segment_properties(buffer);
    hb_shape(m_shaper.get(), buffer, nullptr, 0);
    unsigned count = 0;
    const hb_glyph_info_t *const glyphs = hb_buffer_get_glyph_infos(buffer, &count);
    const std::optional<quint32> glyph = count == 1 ? std::optional(glyphs->codepoint) : std::nullopt;
    hb_buffer_destroy(buffer);
    return glyph && m_paint.paintOf(*glyph) ? glyph : std::nullopt;
}

void ColorFont::draw(QPainter &painter, quint32 glyph, const QTransform &toDevice) const
{
    const double width = m_font.advancesForGlyphIndexes({glyph}).constFirst().x();
    const double height = m_font.ascent() + m_font.descent();
    const QTransform toBox = QTransform(1 / width, 0, 0, -1 / height, 0, m_font.ascent() / height);
    if (const auto paint = m_paint.paintOf(glyph))
        m_paint.draw(painter, *paint, toBox * toDevice);
}

} // namespace mosslantern
