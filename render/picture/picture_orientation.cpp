#include "render/picture/picture_orientation.h"

#include <QtGui/QColorSpace>

#include <algorithm>
#include <array>

namespace mosslantern {

Orientation Orientation::fromExif(int value)
{
    constexpr std::array<Orientation, 8> meanings{{{false, false, false},
                                                   {false, true, false},
                                                   {false, true, true},
                                                   {false, false, true},
                                                   {true, false, false},
                                                   {true, true, false},
                                                   {true, true, true},
                                                   {true, false, true}}};
    return value >= 1 && value <= 8 ? meanings[size_t(value - 1)] : Orientation{};
}

QSize turned(QSize size, Orientation orientation)
{
    return orientation.transposed ? size.transposed() : size;
}

QRectF turned(const QRectF &rect, QSizeF size, Orientation orientation)
{
    QRectF result = rect;
    if (orientation.transposed) {
        result = QRectF(rect.y(), rect.x(), rect.height(), rect.width());
        size.transpose();
    }
    if (orientation.mirrored)
        result.moveLeft(size.width() - result.right());
    if (orientation.flipped)
        result.moveTop(size.height() - result.bottom());
    return result;
}

void placeRows(const QImage &rows, int top, QImage &upright, Orientation orientation)
{
    const int count = rows.height();
    const int width = rows.width();
    const auto source = [&](int row) { return reinterpret_cast<const quint32 *>(rows.constScanLine(row)); };
    const auto target = [&](int row) {
        const int line = orientation.flipped ? upright.height() - 1 - row : row;
        return reinterpret_cast<quint32 *>(upright.scanLine(line));
    };

    if (!orientation.transposed) {
        for (int row = 0; row < count; ++row) {
            if (orientation.mirrored)
                std::reverse_copy(source(row), source(row) + width, target(top + row));
            else
                std::copy_n(source(row), width, target(top + row));
        }
        return;
    }

    const quint32 *first = orientation.mirrored ? source(count - 1) : source(0);
    const qsizetype stride =
        rows.bytesPerLine() / qsizetype(sizeof(quint32)) * (orientation.mirrored ? -1 : 1);
    const int left = orientation.mirrored ? upright.width() - top - count : top;
    for (int column = 0; column < width; ++column) {
        quint32 *to = target(column) + left;
        const quint32 *from = first + column;
        for (int i = 0; i < count; ++i)
            to[i] = from[i * stride];
    }
}

QImage turned(const QImage &image, Orientation orientation)
{
    if (orientation.isUpright())
        return image;
    QImage upright(turned(image.size(), orientation), image.format());
    if (upright.isNull())
        return upright;
    upright.setColorSpace(image.colorSpace());
    for (int top = 0; top < image.height(); top += rowsPerStrip) {
        const QImage rows(image.constScanLine(top), image.width(),
                          std::min(rowsPerStrip, image.height() - top), image.bytesPerLine(), image.format());
        placeRows(rows, top, upright, orientation);
    }
    return upright;
}

} // namespace mosslantern
