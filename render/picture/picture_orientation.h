#pragma once

#include <QtCore/QRectF>
#include <QtCore/QSizeF>
#include <QtGui/QImage>

namespace mosslantern {

/// How a stored picture becomes upright: rows and columns change places first, then it is mirrored.
struct Orientation
{
    bool transposed = false;
    bool mirrored = false; ///< left and right, after transposing
    bool flipped = false;  ///< top and bottom, after transposing

    [[nodiscard]] bool isUpright() const { return !transposed && !mirrored && !flipped; }
    [[nodiscard]] Orientation inverse() const
    {
        return transposed ? Orientation{true, flipped, mirrored} : *this;
    }

    /// Of the values 1 to 8 of the orientation tag of TIFF and EXIF; upright for any other.
    [[nodiscard]] static Orientation fromExif(int value);

    friend bool operator==(const Orientation &, const Orientation &) = default;
};

/// The size of a picture of size `size` after turning it.
[[nodiscard]] QSize turned(QSize size, Orientation orientation);

/// Where `rect` of a picture of size `size` lies after turning it.
[[nodiscard]] QRectF turned(const QRectF &rect, QSizeF size, Orientation orientation);

/// Rows that placeRows() is best given at once: the columns they become fill whole cache lines, and the rows
/// themselves stay in the cache meanwhile.
constexpr int rowsPerStrip = 32;

/// Copies `rows` (32-bit pixels), which stand from row `top` in a picture, to their places in the turned
/// picture `upright`.
void placeRows(const QImage &rows, int top, QImage &upright, Orientation orientation);

/// `image` (32-bit pixels) turned.
[[nodiscard]] QImage turned(const QImage &image, Orientation orientation);

} // namespace mosslantern
