#include "ui/common/thumbnail_picture.h"

#include "render/background.h"
#include "render/pixels/continuous_corners.h"
#include "render/pixels/pixels.h"
#include "render/pixels/resampler.h"
#include "render/pixels/shadows.h"

#include <QtGui/QBrush>
#include <QtGui/QPainter>

namespace mosslantern {

namespace {

QSize framePixels(const ThumbnailRequest &request)
{
    return Canvas{QSizeF(request.size), request.pixelRatio}.pixelSize();
}

QImage scaled(const PictureFill &fill, QSize size)
{
    QImage image(size, fill.image.hasAlphaChannel() ? QImage::Format_RGBA8888_Premultiplied
                                                    : QImage::Format_RGBX8888);
    Q_ASSERT(image.bytesPerLine() == 4 * size.width());
    Resampler(fill.image, fill.part, size).makeRows(0, size.height(), image.bits());
    return image;
}

/// The brush in a frame with rounded corners, and below it the shadow.
QImage framed(const ThumbnailRequest &request, const QBrush &brush)
{
    const int margin =
        request.hasShadow ? static_cast<int>(std::ceil(thumbnailShadowMargin * request.pixelRatio)) : 0;
    const QSize frame = framePixels(request);
    QImage image(frame.grownBy({margin, margin, margin, margin}), QImage::Format_RGBA8888_Premultiplied);
    image.fill(Qt::transparent);
    {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.translate(margin, margin);
        painter.fillPath(continuousRoundedRect(QRectF(QPointF(), frame), request.radius * request.pixelRatio),
                         brush);
    }
    if (request.hasShadow) {
        AlphaPlane silhouette(image.size());
        for (int y = 0; y < image.height(); ++y) {
            const uchar *const pixels = image.constScanLine(y);
            for (int x = 0; x < image.width(); ++x)
                silhouette.row(y)[x] = pixels[4 * x + 3];
        }
        castShadows(image, std::move(silhouette), {{.color = {0, 0, 0, 0.33}, .radius = 2, .offset = {}}},
                    request.pixelRatio);
    }
    return image;
}

} // namespace

size_t qHash(const ThumbnailRequest &request, size_t seed)
{
    return qHashMulti(seed, request.path, request.size, request.radius, request.pixelRatio,
                      request.hasShadow);
}

QImage makeThumbnail(const ThumbnailRequest &request)
{
    const Background background = loadBackground(request.path, {QSizeF(request.size), request.pixelRatio});
    const auto *const fill = std::get_if<PictureFill>(&background);
    return fill ? framed(request, QBrush(scaled(*fill, framePixels(request)))) : QImage();
}

QImage makeThumbnailPlaceholder(const ThumbnailRequest &request)
{
    return framed(request, toColor(missingPictureColor));
}

} // namespace mosslantern
