#include "ui/editor/canvas_frame.h"

#include "render/pixels/continuous_corners.h"
#include "render/pixels/pixels.h"
#include "render/pixels/shadows.h"
#include "ui/editor/image_layer.h"

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
    : QQuickItem(parent)
{
    setFlag(ItemHasContents);
}

void CanvasFrame::setBackdrop(const QColor &color)
{
    if (m_backdrop == color)
        return;
    m_backdrop = color;
    polish();
    emit backdropChanged();
}

void CanvasFrame::setShadowStrength(double strength)
{
    if (m_shadowStrength == strength)
        return;
    m_shadowStrength = strength;
    polish();
    emit shadowStrengthChanged();
}

void CanvasFrame::itemChange(ItemChange change, const ItemChangeData &value)
{
    QQuickItem::itemChange(change, value);
    if (change == ItemSceneChange || change == ItemDevicePixelRatioHasChanged)
        polish();
}

void CanvasFrame::geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    if (newGeometry.size() != oldGeometry.size())
        polish();
}

void CanvasFrame::updatePolish()
{
    if (!window() || size().isEmpty())
        return;
    m_pixelRatio = window()->effectiveDevicePixelRatio();
    const std::vector<Shadow> shadows = frameShadow(m_shadowStrength);
    m_margin = static_cast<int>(std::ceil(shadowReach(shadows, m_pixelRatio)));
    m_image = drawFrame((size() * m_pixelRatio).toSize(), m_margin, m_pixelRatio, m_backdrop, shadows);
    m_imageIsNew = true;
    update();
}

QSGNode *CanvasFrame::updatePaintNode(QSGNode *node, UpdatePaintNodeData *)
{
    if (m_image.isNull() || (node && !m_imageIsNew))
        return node;
    delete node;
    m_imageIsNew = false;
    auto *const root = new QSGNode;
    // Only the four sides, with the corners in the upper and the lower one: nothing is drawn over the middle.
    const int corner = static_cast<int>(std::ceil(continuousCornerExtent * cornerRadius * m_pixelRatio));
    const int side = m_margin + corner;
    const QRect all = m_image.rect();
    const int between = std::max(0, all.height() - 2 * side);
    for (const QRect &part : {QRect(0, 0, all.width(), side), QRect(0, side, m_margin, between),
                              QRect(all.width() - m_margin, side, m_margin, between),
                              QRect(0, all.height() - side, all.width(), side)}) {
        QSGNode *const drawn = makeImageNode(window(), m_image.copy(part),
                                             part.topLeft() - QPoint(m_margin, m_margin), m_pixelRatio);
        drawn->setFlag(QSGNode::OwnedByParent);
        root->appendChildNode(drawn);
    }
    return root;
}

} // namespace mosslantern
