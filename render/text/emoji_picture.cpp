#include "render/text/emoji_picture.h"

#include "render/pixels/new_image.h"

#include <QtGui/QImage>
#include <QtGui/QPaintDevice>
#include <QtGui/QPainter>
#include <QtGui/QRawFont>

#include <cmath>

namespace mosslantern {

namespace {

// At this pixel size, Qt shows the bitmaps of Noto Color Emoji (136 × 128) as they are.
constexpr double bitmapPixelSize = 128;

QImage bitmapOf(const QRawFont &font, quint32 glyph, const QRectF &bounds)
{
    QImage bitmap = newImage(bounds.toAlignedRect().size(), QImage::Format_ARGB32_Premultiplied);
    bitmap.fill(0);
    QGlyphRun run;
    run.setRawFont(font);
    run.setGlyphIndexes({glyph});
    run.setPositions({-bounds.topLeft()});
    QPainter painter(&bitmap);
    painter.drawGlyphRun(QPointF(), run);
    return bitmap;
}

/// `bitmap` with as many pixels as it shows on, if these are fewer.
QImage reduced(const QImage &bitmap, double pixelsPerBitmapPixel)
{
    if (pixelsPerBitmapPixel >= 1)
        return bitmap;
    const auto pixels = [&](int extent) {
        return std::max(1, static_cast<int>(std::lround(extent * pixelsPerBitmapPixel)));
    };
    return bitmap.scaled(pixels(bitmap.width()), pixels(bitmap.height()), Qt::IgnoreAspectRatio,
                         Qt::SmoothTransformation);
}

} // namespace

void drawEmojiRun(QPainter &painter, const QGlyphRun &run)
{
    QRawFont font = run.rawFont();
    const double enlargement = font.pixelSize() / bitmapPixelSize;
    font.setPixelSize(bitmapPixelSize);
    const QTransform toDevice = painter.combinedTransform();
    const double pixels = std::sqrt(std::abs(toDevice.determinant())) * enlargement;
    bool invertible = false;
    const QRectF shown = toDevice.inverted(&invertible)
                             .mapRect(QRectF(0, 0, painter.device()->width(), painter.device()->height()));
    if (!invertible)
        return;

    const QList<quint32> glyphs = run.glyphIndexes();
    const QList<QPointF> positions = run.positions();
    for (qsizetype i = 0; i < glyphs.size(); ++i) {
        const QRectF bounds = font.boundingRect(glyphs[i]);
        const QRectF target(positions[i] + bounds.topLeft() * enlargement, bounds.size() * enlargement);
        const QRectF visible = target & shown;
        if (visible.isEmpty())
            continue;
        const QImage bitmap = reduced(bitmapOf(font, glyphs[i], bounds), pixels);
        // Only what shows is handed on: the whole may be astronomically large.
        const double across = bitmap.width() / target.width();
        const double down = bitmap.height() / target.height();
        const QRectF part((visible.x() - target.x()) * across, (visible.y() - target.y()) * down,
                          visible.width() * across, visible.height() * down);
        painter.drawImage(visible, bitmap, part);
    }
}

} // namespace mosslantern
