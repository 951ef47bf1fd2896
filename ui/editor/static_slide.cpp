#include "ui/editor/static_slide.h"

#include "render/picture/picture_geometry.h"
#include "render/pixels/continuous_corners.h"

#include <QtGui/QPainter>

#include <cmath>

namespace mosslantern {

namespace {

PictureFill filling(const QImage &picture, QSize canvas)
{
    const QImage image = picture.convertToFormat(
        picture.hasAlphaChannel() ? QImage::Format_RGBA8888_Premultiplied : QImage::Format_RGBX8888);
    return {image, coverRegion(image.size(), canvas)};
}

/// Clears what lies outside corners of `radius` pixels at the top.
void cutTopCorners(QImage &image, double radius)
{
    const int extent = static_cast<int>(std::ceil(continuousCornerExtent * radius));
    QPainterPath outside;
    outside.addRect(image.rect());
    outside -= continuousRoundedRect(QRectF(image.rect()).adjusted(0, 0, 0, 2 * extent), radius);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
    painter.fillPath(outside, Qt::black);
}

} // namespace

AspectRatio aspectRatioFromVariant(const QVariant &value)
{
    return value.isValid() ? static_cast<AspectRatio>(value.toInt()) : AspectRatio::tiktok;
}

StaticSlide::StaticSlide(QQuickItem *parent)
    : DrawnItem(parent)
    , m_picture(*this, CanvasPicture::Turn::later)
{
    connect(&m_picture, &CanvasPicture::changed, this, [this] {
        redraw();
        emit isLoadedChanged();
    });
}

void StaticSlide::setTopRadius(double radius)
{
    if (m_topRadius == radius)
        return;
    m_topRadius = radius;
    redraw();
    emit topRadiusChanged();
}

QRectF StaticSlide::canvasRect() const
{
    return fittedCanvas(shape(), boundingRect());
}

Background StaticSlide::background(const Content &content, const Canvas &canvas)
{
    if (!content.preloadedPicture.isNull())
        return filling(content.preloadedPicture, canvas.pixelSize());
    const bool wasLoaded = isLoaded();
    m_picture.show(content.picturePath, canvas.pixelSize());
    if (wasLoaded != isLoaded())
        emit isLoadedChanged();
    if (const auto fill = m_picture.fill())
        return *fill;
    return content.picturePath.isEmpty() ? content.noPicture : missingPictureColor;
}

std::vector<PlacedImage> StaticSlide::draw(double pixelRatio)
{
    const QRectF rect = canvasRect();
    if (rect.isEmpty())
        return {};
    const Canvas canvas{rect.size(), pixelRatio};
    const Content shown = content();
    // When only the picture is new, the texts need not be drawn again.
    if (shown.values != m_drawnValues || canvas.size != m_drawnCanvas.size ||
        canvas.pixelRatio != m_drawnCanvas.pixelRatio) {
        m_texts = drawTexts(shown.values, canvas);
        m_drawnValues = shown.values;
        m_drawnCanvas = canvas;
    }
    QImage image = SlideComposition(canvas, background(shown, canvas), m_texts).image();
    if (m_topRadius > 0)
        cutTopCorners(image, m_topRadius * pixelRatio);
    return {place(image, (rect.topLeft() * pixelRatio).toPoint(), pixelRatio)};
}

} // namespace mosslantern
