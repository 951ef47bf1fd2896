#include "render/text/color_paint.h"

#include <QtCore/QtEndian>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

namespace mosslantern {

namespace {

// The formats of paints that emoji fonts use.
enum Format : quint8 {
    layers = 1,
    solid = 2,
    linearGradient = 4,
    radialGradient = 6,
    outline = 10,
    otherGlyph = 11,
    transformed = 12,
    translated = 14,
    scaled = 16,
    scaledAroundCenter = 18,
    composite = 32,
};

constexpr quint8 sourceIn = 5;

template <typename Number>
Number number(const QByteArray &table, qsizetype at)
{
    return qFromBigEndian<Number>(table.constData() + at);
}

bool isTransform(quint8 format)
{
    return format == transformed || format == translated || format == scaled || format == scaledAroundCenter;
}

QImage blankLike(const QPaintDevice &device)
{
    QImage image(device.width(), device.height(), QImage::Format_ARGB32_Premultiplied);
    image.fill(0);
    return image;
}

} // namespace

ColorPaint::ColorPaint(const QRawFont &font)
    : m_font(font)
    , m_layers(font.fontTable("COLR"))
    , m_palette(font.fontTable("CPAL"))
{}

quint16 ColorPaint::unsigned16(qsizetype at) const
{
    return number<quint16>(m_layers, at);
}

quint32 ColorPaint::unsigned32(qsizetype at) const
{
    return number<quint32>(m_layers, at);
}

qsizetype ColorPaint::child(qsizetype paint, qsizetype field) const
{
    return paint + (unsigned32(paint + field) >> 8);
}

double ColorPaint::fraction(qsizetype at) const
{
    return signed16(at) / 16384.0;
}

QPointF ColorPaint::point(qsizetype at) const
{
    return {static_cast<double>(signed16(at)), static_cast<double>(signed16(at + 2))};
}

std::optional<qsizetype> ColorPaint::paintOf(quint32 glyph) const
{
    constexpr qsizetype glyphList = 14;
    constexpr qsizetype recordSize = 6;
    if (m_layers.isEmpty())
        return {};
    const qsizetype list = unsigned32(glyphList);
    qsizetype first = 0;
    qsizetype end = unsigned32(list);
    while (first < end) {
        const qsizetype middle = (first + end) / 2;
        const qsizetype record = list + 4 + recordSize * middle;
        const quint32 found = unsigned16(record);
        if (found == glyph)
            return list + unsigned32(record + 2);
        if (found < glyph)
            first = middle + 1;
        else
            end = middle;
    }
    return {};
}

QTransform ColorPaint::transform(qsizetype paint) const
{
    switch (byte(paint)) {
    case transformed: {
        const qsizetype matrix = child(paint, 4);
        const auto value = [&](int i) {
            return static_cast<qint32>(unsigned32(matrix + qsizetype(4) * i)) / 65536.0;
        };
        return {value(0), value(1), value(2), value(3), value(4), value(5)};
    }
    case translated: {
        const QPointF by = point(paint + 4);
        return QTransform::fromTranslate(by.x(), by.y());
    }
    default: {
        const QPointF center = byte(paint) == scaledAroundCenter ? point(paint + 8) : QPointF();
        return QTransform::fromTranslate(-center.x(), -center.y()) *
               QTransform::fromScale(fraction(paint + 4), fraction(paint + 6)) *
               QTransform::fromTranslate(center.x(), center.y());
    }
    }
}

QColor ColorPaint::color(qsizetype entryAndAlpha) const
{
    constexpr qsizetype recordsOffset = 8;
    const qsizetype record =
        number<quint32>(m_palette, recordsOffset) + qsizetype(4) * unsigned16(entryAndAlpha);
    const auto part = [&](int i) { return static_cast<quint8>(m_palette[record + i]); };
    QColor color(part(2), part(1), part(0), part(3));
    color.setAlphaF(static_cast<float>(color.alphaF() * fraction(entryAndAlpha + 2)));
    return color;
}

QGradientStops ColorPaint::stops(qsizetype colorLine) const
{
    constexpr qsizetype stopSize = 6;
    constexpr double apart = 1e-6; // Qt keeps one of several stops at the same place
    QGradientStops stops;
    for (int i = 0; i < unsigned16(colorLine + 1); ++i) {
        const qsizetype stop = colorLine + 3 + stopSize * i;
        double at = fraction(stop);
        if (!stops.isEmpty() && at <= stops.last().first)
            at = stops.last().first + apart;
        stops.append({std::min(at, 1.0), color(stop + 2)});
    }
    return stops;
}

QBrush ColorPaint::fill(qsizetype paint) const
{
    QTransform toOutline;
    while (isTransform(byte(paint))) {
        toOutline = transform(paint) * toOutline;
        paint = child(paint, 1);
    }
    if (byte(paint) == solid)
        return color(paint + 1);
    QGradient gradient;
    const QPointF start = point(paint + 4);
    if (byte(paint) == linearGradient) {
        // Colours change at right angles to the way from the start to the third point.
        const QPointF along = point(paint + 12) - start;
        const QPointF across(along.y(), -along.x());
        const double length = QPointF::dotProduct(across, across);
        const double part = length > 0 ? QPointF::dotProduct(point(paint + 8) - start, across) / length : 0;
        gradient = QLinearGradient(start, start + part * across);
    } else {
        Q_ASSERT(byte(paint) == radialGradient);
        gradient = QRadialGradient(point(paint + 10), unsigned16(paint + 14), start, unsigned16(paint + 8));
    }
    gradient.setStops(stops(child(paint, 1)));
    QBrush brush(gradient);
    brush.setTransform(toOutline);
    return brush;
}

void ColorPaint::draw(QPainter &painter, qsizetype paint, const QTransform &toDevice) const
{
    switch (byte(paint)) {
    case layers: {
        constexpr qsizetype layerList = 18;
        const qsizetype list = unsigned32(layerList);
        const qsizetype first = unsigned32(paint + 2);
        for (qsizetype i = first; i < first + byte(paint + 1); ++i)
            draw(painter, list + unsigned32(list + 4 + 4 * i), toDevice);
        break;
    }
    case outline: {
        // Outlines of the font have y downwards.
        painter.setWorldTransform(QTransform::fromScale(1, -1) * toDevice);
        QBrush brush = fill(child(paint, 1));
        brush.setTransform(brush.transform() * QTransform::fromScale(1, -1));
        QPainterPath outlines = m_font.pathForGlyph(unsigned16(paint + 4));
        outlines.setFillRule(Qt::WindingFill);
        painter.fillPath(outlines, brush);
        break;
    }
    case otherGlyph:
        if (const auto other = paintOf(unsigned16(paint + 1)))
            draw(painter, *other, toDevice);
        break;
    case composite:
        drawComposite(painter, paint, toDevice);
        break;
    default:
        if (isTransform(byte(paint))) {
            draw(painter, child(paint, 1), transform(paint) * toDevice);
            break;
        }
        painter.setWorldTransform(toDevice);
        const QRectF all(0, 0, painter.device()->width(), painter.device()->height());
        painter.fillRect(toDevice.inverted().mapRect(all), fill(paint));
    }
}

void ColorPaint::drawComposite(QPainter &painter, qsizetype paint, const QTransform &toDevice) const
{
    const auto drawn = [&](qsizetype part) {
        QImage image = blankLike(*painter.device());
        QPainter onImage(&image);
        onImage.setRenderHint(QPainter::Antialiasing);
        draw(onImage, part, toDevice);
        return image;
    };
    QImage result = drawn(child(paint, 5));
    {
        QPainter onResult(&result);
        onResult.setCompositionMode(byte(paint + 4) == sourceIn ? QPainter::CompositionMode_SourceIn
                                                                : QPainter::CompositionMode_SoftLight);
        onResult.drawImage(0, 0, drawn(child(paint, 1)));
    }
    painter.resetTransform();
    painter.drawImage(0, 0, result);
}

} // namespace mosslantern
