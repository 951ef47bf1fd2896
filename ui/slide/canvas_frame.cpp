#include "ui/slide/canvas_frame.h"

#include "model/change.h"
#include "render/pixels/continuous_corners.h"
#include "render/pixels/pixels.h"
#include "render/pixels/shadows.h"

#include <QtGui/QPainter>

#include <cmath>

namespace mosslantern {

namespace {

constexpr double cornerRadius = 12;

std::vector<Shadow> frameShadow(double strength)
{
    return {{{0, 0, 0, strength}, 30, {0, 10}}};
}

/// A canvas of `canvas` pixels, `margin` away from the edges: its shadow on the backdrop, and nothing inside.
QImage drawFrame(QSize canvas, int margin, double pixelRatio, const QColor &backdrop,
                 const std::vector<Shadow> &shadows)
{
    QImage mask(canvas.grownBy({margin, margin, margin, margin}), QImage::Format_Alpha8);
    mask.fill(0);
    const QPainterPath outline =
        continuousRoundedRect(QRectF(QPointF(margin, margin), canvas), cornerRadius * pixelRatio);
    {
        QPainter painter(&mask);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.fillPath(outline, Qt::black);
    }
    QImage shadow(mask.size(), QImage::Format_RGBA8888_Premultiplied);
    shadow.fill(Qt::transparent);
    castShadows(shadow, alphaPlane(mask), shadows, pixelRatio);

    QImage frame(mask.size(), QImage::Format_ARGB32_Premultiplied);
    frame.fill(backdrop);
    QPainter painter(&frame);
    painter.drawImage(0, 0, shadow);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
    painter.fillPath(outline, Qt::black);
    return frame;
}

} // namespace

CanvasFrame::CanvasFrame(QQuickItem *parent)
    : DrawnItem(parent)
{}

void CanvasFrame::setBackdrop(const QColor &color)
{
    if (change(*this, m_backdrop, color, &CanvasFrame::backdropChanged))
        redraw();
}

void CanvasFrame::setShadowStrength(double strength)
{
    if (change(*this, m_shadowStrength, strength, &CanvasFrame::shadowStrengthChanged))
        redraw();
}

std::vector<PlacedImage> CanvasFrame::draw(double pixelRatio)
{
    if (size().isEmpty())
        return {};
    const std::vector<Shadow> shadows = frameShadow(m_shadowStrength);
    const int margin = static_cast<int>(std::ceil(shadowReach(shadows, pixelRatio)));
    const QImage frame = drawFrame((size() * pixelRatio).toSize(), margin, pixelRatio, m_backdrop, shadows);
    // Only the four sides, with the corners in the upper and the lower one: nothing is drawn over the middle.
    const int corner = static_cast<int>(std::ceil(continuousCornerExtent * cornerRadius * pixelRatio));
    const int side = margin + corner;
    const QRect all = frame.rect();
    const int between = std::max(0, all.height() - 2 * side);
    std::vector<PlacedImage> images;
    for (const QRect &part : {QRect(0, 0, all.width(), side), QRect(0, side, margin, between),
                              QRect(all.width() - margin, side, margin, between),
                              QRect(0, all.height() - side, all.width(), side)}) {
        if (!part.isEmpty())
            images.push_back(place(frame.copy(part), part.topLeft() - QPoint(margin, margin), pixelRatio));
    }
    return images;
}

} // namespace mosslantern
