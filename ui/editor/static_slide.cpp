#include "ui/editor/static_slide.h"

#include "render/picture/picture_geometry.h"
#include "render/pixels/continuous_corners.h"
#include "ui/editor/image_layer.h"

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
    : QQuickItem(parent)
    , m_picture(*this, CanvasPicture::Turn::later)
{
    setFlag(ItemHasContents);
    connect(&m_picture, &CanvasPicture::changed, this, [this] {
        redraw();
        emit isLoadedChanged();
    });
}

void StaticSlide::redraw()
{
    if (isComponentComplete() && window())
        polish();
}

void StaticSlide::componentComplete()
{
    QQuickItem::componentComplete();
    redraw();
}

void StaticSlide::itemChange(ItemChange change, const ItemChangeData &value)
{
    QQuickItem::itemChange(change, value);
    if (change == ItemSceneChange || change == ItemDevicePixelRatioHasChanged)
        redraw();
}

void StaticSlide::geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    if (newGeometry.size() != oldGeometry.size())
        redraw();
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

void StaticSlide::updatePolish()
{
    const QRectF rect = canvasRect();
    if (rect.isEmpty())
        return;
    m_pixelRatio = window()->effectiveDevicePixelRatio();
    const Canvas canvas{rect.size(), m_pixelRatio};
    const Content shown = content();
    // When only the picture is new, the texts need not be drawn again.
    if (m_image.isNull() || shown.values != m_drawnValues || canvas.size != m_drawnCanvas.size ||
        canvas.pixelRatio != m_drawnCanvas.pixelRatio) {
        m_texts = drawTexts(shown.values, canvas);
        m_drawnValues = shown.values;
        m_drawnCanvas = canvas;
    }
    m_image = SlideComposition(canvas, background(shown, canvas), m_texts).image();
    if (m_topRadius > 0)
        cutTopCorners(m_image, m_topRadius * m_pixelRatio);
    m_imageIsNew = true;
    update();
}

QSGNode *StaticSlide::updatePaintNode(QSGNode *node, UpdatePaintNodeData *)
{
    if (m_image.isNull() || (node && !m_imageIsNew))
        return node;
    delete node;
    m_imageIsNew = false;
    const QPoint at = (canvasRect().topLeft() * m_pixelRatio).toPoint();
    return makeImageNode(window(), m_image, at, m_pixelRatio);
}

} // namespace mosslantern
