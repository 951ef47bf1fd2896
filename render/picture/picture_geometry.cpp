#include "render/picture/picture_geometry.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace mosslantern {

namespace {

constexpr qint64 mostPixels = 200'000'000;
constexpr int filterMargin = 12;
constexpr int pixelsToOneShown = 2;
// Four times those of the canvas of an export, as many as may be needed.
constexpr double mostImagePixels = 33e6;

/// Image pixels per picture pixel when each pixel that is shown has its own.
double shownScale(QSize full, const PictureRequest &request)
{
    return std::max(double(request.cover.width()) / full.width(),
                    double(request.cover.height()) / full.height());
}

} // namespace

QRectF coverRegion(QSizeF full, QSizeF cover)
{
    const double scale = std::max(cover.width() / full.width(), cover.height() / full.height());
    const QSizeF size = (cover / scale).boundedTo(full);
    return {QPointF((full.width() - size.width()) / 2, (full.height() - size.height()) / 2), size};
}

double neededScale(QSize full, const PictureRequest &request)
{
    if (request.cover.isEmpty())
        return 1;
    return std::min(1.0, pixelsToOneShown * shownScale(full, request));
}

qint64 mostImageBytes(QSize full, const PictureRequest &request)
{
    constexpr double bytesPerPixel = 4;
    if (!full.isValid())
        return qint64(bytesPerPixel * mostImagePixels);
    // Decoders halve, so the image may be nearly twice as large as needed, both ways.
    const double scale = std::min(1.0, 2 * neededScale(full, request));
    const QSizeF size = neededRegion(full, request).size() * scale;
    return qint64(bytesPerPixel * std::min(size.width() * size.height(), mostImagePixels));
}

bool isLavish(QSize full, const PictureRequest &request, double scale, double smaller)
{
    if (request.cover.isEmpty() || smaller < shownScale(full, request))
        return false;
    const QSizeF size = neededRegion(full, request).size() * scale;
    return size.width() * size.height() > mostImagePixels;
}

QRectF neededRegion(QSize full, const PictureRequest &request)
{
    if (request.cover.isEmpty() || !request.cropToCover)
        return {QPointF(), QSizeF(full)};
    return coverRegion(full, request.cover);
}

QRect pixelsShowing(const QRectF &region, double scale, QSize bounds)
{
    const QPoint topLeft(int(std::floor(region.left() * scale)) - filterMargin,
                         int(std::floor(region.top() * scale)) - filterMargin);
    const QPoint bottomRight(int(std::ceil(region.right() * scale)) + filterMargin,
                             int(std::ceil(region.bottom() * scale)) + filterMargin);
    return QRect(topLeft, bottomRight - QPoint(1, 1)).intersected(QRect(QPoint(), bounds));
}

Result<> checkPictureSize(QSize size, int bytesPerPixel, qint64 mostBytes)
{
    if (size.isEmpty())
        return fail(u"The picture has no pixels."_s);
    const qint64 pixels = qint64(size.width()) * size.height();
    if (std::max(size.width(), size.height()) > longestPictureSide || pixels > mostPixels ||
        pixels * bytesPerPixel > mostBytes) {
        return fail(u"The picture is too large: %1 × %2 pixels."_s.arg(size.width()).arg(size.height()));
    }
    return {};
}

} // namespace mosslantern
