#pragma once

#include "render/slide_composition.h"

#include <QtCore/QRect>
#include <QtGui/QImage>

#include <functional>

namespace mosslantern::test {

/// An opaque picture of one colour, in the painter's pixel order.
inline QImage plainPicture(const QColor &color, QSize size = {40, 60})
{
    QImage picture(size, QImage::Format_RGBX8888);
    picture.fill(color);
    return picture;
}

/// A slide over one colour, which no text of the tests has.
inline QImage drawn(const SlideValues &values, const Canvas &canvas, const QColor &behind = Qt::blue)
{
    const QImage picture = plainPicture(behind);
    return SlideComposition(canvas, PictureFill{picture, QRectF(QPointF(), picture.size())},
                            drawTexts(values, canvas))
        .image();
}

/// The smallest rectangle around the pixels that `wanted` is true for.
inline QRect boundsOf(const QImage &image, const std::function<bool(const QColor &)> &wanted,
                      const QRect &within = {})
{
    const QRect area = within.isNull() ? image.rect() : within & image.rect();
    QRect bounds;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            if (wanted(image.pixelColor(x, y)))
                bounds |= QRect(x, y, 1, 1);
        }
    }
    return bounds;
}

inline bool isWhite(const QColor &color)
{
    return color.red() > 200 && color.green() > 200 && color.blue() > 200;
}

inline bool isRed(const QColor &color)
{
    return color.red() > 200 && color.green() < 60 && color.blue() < 60;
}

} // namespace mosslantern::test
