#include "render/text/emoji_picture.h"

#include "render/pixels/new_image.h"
#include "render/text/emoji_outlines.h"

#include <QtCore/QCache>
#include <QtGui/QImage>
#include <QtGui/QPaintDevice>
#include <QtGui/QPainter>
#include <QtGui/QRawFont>

namespace mosslantern {

namespace {

// At this pixel size, Qt shows the bitmaps of Noto Color Emoji (136 × 128) as they are.
constexpr double bitmapPixelSize = 128;

// Pictures of more pixels in one direction are drawn as far as they show, each time.
constexpr int largestKept = 1024;
constexpr qsizetype keptBytes = 24 << 20;

/// A glyph of the emoji font, whose bitmap fills `bounds` at the font's size.
struct Emoji
{
    QRawFont font;
    quint32 glyph = 0;
    QRectF bounds;
    QString text;
};

QImage blank(QSize size)
{
    QImage image = newImage(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(0);
    return image;
}

QImage bitmapOf(const Emoji &emoji)
{
    QImage bitmap = blank(emoji.bounds.toAlignedRect().size());
    QGlyphRun run;
    run.setRawFont(emoji.font);
    run.setGlyphIndexes({emoji.glyph});
    run.setPositions({-emoji.bounds.topLeft()});
    QPainter painter(&bitmap);
    painter.drawGlyphRun(QPointF(), run);
    return bitmap;
}

/// The outlines of the bitmap, which fills the unit square, on an image of `size` pixels.
QImage drawn(const EmojiOutlines &outlines, const QTransform &toPixels, QSize size)
{
    QImage image = blank(size);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    outlines.font->draw(painter, outlines.glyph, toPixels);
    return image;
}

/// The whole emoji in `size` pixels; null when it can only be had by enlarging the bitmap.
QImage makePicture(const Emoji &emoji, QSize size)
{
    if (size.width() <= emoji.bounds.width() && size.height() <= emoji.bounds.height())
        return bitmapOf(emoji).scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    const auto outlines = emojiOutlines(emoji.text);
    return outlines ? drawn(*outlines, QTransform::fromScale(size.width(), size.height()), size) : QImage();
}

QImage keptPicture(const Emoji &emoji, QSize size)
{
    using Key = std::pair<quint32, std::pair<int, int>>;
    thread_local QCache<Key, QImage> kept(keptBytes);
    const Key key(emoji.glyph, {size.width(), size.height()});
    if (const QImage *const known = kept.object(key))
        return *known;
    const QImage picture = makePicture(emoji, size);
    kept.insert(key, new QImage(picture), std::max<qsizetype>(1, picture.sizeInBytes()));
    return picture;
}

bool isUpright(const QTransform &transform)
{
    return transform.type() <= QTransform::TxScale && transform.m11() > 0 && transform.m22() > 0;
}

/// Draws what shows of an emoji that fills `target`: the whole may be astronomically large.
void drawVisiblePart(QPainter &painter, const Emoji &emoji, const QRectF &target, const QRectF &visible)
{
    if (const auto outlines = emojiOutlines(emoji.text)) {
        const QRect part = painter.combinedTransform().mapRect(visible).toAlignedRect();
        const QTransform toPixels = QTransform::fromScale(target.width(), target.height()) *
                                    QTransform::fromTranslate(target.x(), target.y()) *
                                    painter.combinedTransform() *
                                    QTransform::fromTranslate(-part.x(), -part.y());
        painter.save();
        painter.resetTransform();
        painter.drawImage(part.topLeft(), drawn(*outlines, toPixels, part.size()));
        painter.restore();
        return;
    }
    const QImage bitmap = bitmapOf(emoji);
    const double across = bitmap.width() / target.width();
    const double down = bitmap.height() / target.height();
    painter.drawImage(visible, bitmap,
                      {(visible.x() - target.x()) * across, (visible.y() - target.y()) * down,
                       visible.width() * across, visible.height() * down});
}

void drawEmoji(QPainter &painter, const Emoji &emoji, const QRectF &target, const QRectF &visible)
{
    const QTransform toDevice = painter.combinedTransform();
    const QRectF shown = toDevice.mapRect(target);
    if (isUpright(toDevice) && shown.width() <= largestKept && shown.height() <= largestKept) {
        const QSize size = shown.size().toSize().expandedTo({1, 1});
        if (const QImage picture = keptPicture(emoji, size); !picture.isNull()) {
            painter.save();
            painter.resetTransform();
            painter.drawImage(shown.topLeft().toPoint(), picture);
            painter.restore();
            return;
        }
    }
    drawVisiblePart(painter, emoji, target, visible);
}

} // namespace

void drawEmojiRun(QPainter &painter, const QGlyphRun &run, const QHash<quint32, QString> &emoji)
{
    QRawFont font = run.rawFont();
    const double enlargement = font.pixelSize() / bitmapPixelSize;
    font.setPixelSize(bitmapPixelSize);
    bool invertible = false;
    const QRectF shown = painter.combinedTransform()
                             .inverted(&invertible)
                             .mapRect(QRectF(0, 0, painter.device()->width(), painter.device()->height()));
    if (!invertible)
        return;

    const QList<quint32> glyphs = run.glyphIndexes();
    const QList<QPointF> positions = run.positions();
    for (qsizetype i = 0; i < glyphs.size(); ++i) {
        const QRectF bounds = font.boundingRect(glyphs[i]);
        const QRectF target(positions[i] + bounds.topLeft() * enlargement, bounds.size() * enlargement);
        const QRectF visible = target & shown;
        if (!visible.isEmpty())
            drawEmoji(painter, {font, glyphs[i], bounds, emoji.value(glyphs[i])}, target, visible);
    }
}

} // namespace mosslantern
