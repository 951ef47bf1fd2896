#pragma once

#include "render/picture/picture_loader.h"
#include "render/picture/picture_orientation.h"

#include <QtGui/QColorSpace>
#include <QtGui/QImage>

#include <array>
#include <functional>
#include <vector>

namespace mosslantern {

/// What of a stored picture is decoded for a request, and how far it is reduced.
struct PictureFit
{
    QSize fullSize; ///< upright
    Orientation orientation;
    int factor = 1;
    QRect crop;    ///< of the stored picture; begins at a multiple of `factor`
    QRectF region; ///< as in Picture

    /// The size of the image before it is turned.
    [[nodiscard]] QSize size() const;
    /// What making the image takes at most, besides what is decoded.
    [[nodiscard]] qint64 bytes() const;
};

[[nodiscard]] PictureFit fitOf(QSize stored, Orientation orientation, const PictureRequest &request);

/// The number of pixels, in each direction, that reduced() may make one where `scale` (at most 1) is enough.
[[nodiscard]] int reductionFactor(double scale);

/// Averages each block of `factor` × `factor` pixels into one, row by row; blocks at the right and bottom
/// edge may be smaller.
class RowReducer
{
public:
    /// `crop` of the rows becomes `image`, whose pixels are RGBX8888 or RGBA8888_Premultiplied, or RGBA8888
    /// where the factor is 1.
    RowReducer(QImage &image, const QRect &crop, int factor);

    /// The next rows, of any format, which stand from row `top` in the picture.
    void add(const QImage &rows, int top);

private:
    void addRow(const uchar *row);
    void endBlock();

    using Sum = std::array<quint32, 4>;

    QImage &m_image;
    const QRect m_crop;
    const int m_factor;
    std::vector<Sum> m_sums;
    int m_rowsInBlock = 0;
    int m_rows = 0; ///< added so far
};

/// `image` with its blocks averaged. The pixels are RGBX8888 or RGBA8888_Premultiplied.
[[nodiscard]] QImage reduced(const QImage &image, int factor);

/// The picture of `fit`: `read` gives all rows of the crop to the reducer, in the colours of `space`.
[[nodiscard]] Result<Picture> fitted(const PictureFit &fit, bool hasAlpha, const QColorSpace &space,
                                     const std::function<Result<>(RowReducer &)> &read);

/// The picture that `request` wants of `stored`, a whole decoded picture in the colours of `space` that
/// `orientation` turns upright.
[[nodiscard]] Result<Picture> fitPicture(QImage stored, Orientation orientation, const QColorSpace &space,
                                         const PictureRequest &request);

} // namespace mosslantern
