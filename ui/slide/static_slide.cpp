#include "ui/slide/static_slide.h"

#include "model/change.h"
#include "render/picture/picture_geometry.h"
#include "render/pixels/continuous_corners.h"

#include <QtGui/QPainter>
#include <QtQuick/QQuickWindow>

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
    connect(this, &StaticSlide::canvasShapeChanged, this, &StaticSlide::fitWidth);
}

void StaticSlide::setTopRadius(double radius)
{
    if (change(*this, m_topRadius, radius, &StaticSlide::topRadiusChanged))
        redraw();
}

double StaticSlide::pixelRatio() const
{
    return window() ? window()->effectiveDevicePixelRatio() : 1;
}

void StaticSlide::fitWidth()
{
    const QSize pixels = Canvas{{height() * widthToHeight(shape()), height()}, pixelRatio()}.pixelSize();
    setImplicitWidth(pixels.width() / pixelRatio());
}

void StaticSlide::itemChange(ItemChange change, const ItemChangeData &value)
{
    DrawnItem::itemChange(change, value);
    if (change == ItemSceneChange || change == ItemDevicePixelRatioHasChanged)
        fitWidth();
}

void StaticSlide::geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    DrawnItem::geometryChange(newGeometry, oldGeometry);
    if (newGeometry.height() != oldGeometry.height())
        fitWidth();
}

QRectF StaticSlide::canvasRect() const
{
    // The width of an item that is as wide as the canvas was rounded by up to half a pixel.
    const double rounding = 0.49 / pixelRatio();
    return fittedCanvas(shape(), boundingRect().adjusted(-rounding / 2, 0, rounding / 2, 0));
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
