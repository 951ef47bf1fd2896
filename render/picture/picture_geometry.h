#pragma once

#include "model/error.h"

#include <QtCore/QRect>
#include <QtCore/QRectF>
#include <QtCore/QSize>

namespace mosslantern {

/// The longest side of a picture that is accepted, in pixels.
constexpr int longestPictureSide = 65'535;

/// What part of a picture is wanted, and how large.
struct PictureRequest
{
    /// Pixels that the picture has to fill, both ways (aspect fill). Empty: the whole picture in all its
    /// pixels.
    QSize cover;
    /// Only the centred part that fills `cover` is wanted, not what hangs over at two sides.
    bool cropToCover = false;
};

/// The centred part of a picture of size `full` that shows when the picture fills `cover`.
[[nodiscard]] QRectF coverRegion(QSizeF full, QSizeF cover);

/// Image pixels per picture pixel that `request` needs; never more than 1. Where a picture is shown smaller
/// there are at least two pixels to one shown, both ways: the Resampler reduces better than decoders.
[[nodiscard]] double neededScale(QSize full, const PictureRequest &request);

/// Whether an image with `scale` pixels per picture pixel takes more than 132 MB although a smaller one would
/// still have a pixel for each that is shown.
[[nodiscard]] bool isLavish(QSize full, const PictureRequest &request, double scale, double smaller);

/// The most bytes that the image of a picture takes that is decoded for `request`. An invalid size stands for
/// any.
[[nodiscard]] qint64 mostImageBytes(QSize full, const PictureRequest &request);

/// The part of the upright picture that `request` needs.
[[nodiscard]] QRectF neededRegion(QSize full, const PictureRequest &request);

/// The pixels of an image of size `bounds`, `scale` times as large as the picture, that show `region`.
/// Includes a margin where there are pixels, as wide as the Resampler looks at four pixels to one shown.
[[nodiscard]] QRect pixelsShowing(const QRectF &region, double scale, QSize bounds);

/// Refuses a picture of no extent, with a longer side than longestPictureSide, of more than 200 megapixels,
/// or that needs more than `mostBytes` at `bytesPerPixel`.
[[nodiscard]] Result<> checkPictureSize(QSize size, int bytesPerPixel, qint64 mostBytes);

} // namespace mosslantern
