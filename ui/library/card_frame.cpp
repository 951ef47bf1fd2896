#include "ui/library/card_frame.h"

#include "render/pixels/continuous_corners.h"
#include "render/pixels/pixels.h"
#include "render/pixels/shadows.h"

#include <QtGui/QPainter>
#include <QtQuick/QQuickWindow>
#include <QtQuick/QSGNinePatchNode>

#include <cmath>

namespace mosslantern {

namespace {

// In points: how far the largest shadow reaches out of the card, and how far from a corner it is no longer
// that of a straight edge.
constexpr double margin = 44;
constexpr double cornerReach = 34;

Shadow shadowAt(double lift)
{
    return {{0, 0, 0, 0.1 + 0.1 * lift}, 10 + 10 * lift, {0, 5 + 5 * lift}};
}

} // namespace

CardFrame::CardFrame(QQuickItem *parent)
    : QQuickItem(parent)
{
    setFlag(ItemHasContents);
    connect(this, &CardFrame::lookChanged, this, [this] {
        m_isOutdated = true;
        update();
    });
}

void CardFrame::itemChange(ItemChange change, const ItemChangeData &value)
{
    QQuickItem::itemChange(change, value);
    if (change == ItemDevicePixelRatioHasChanged) {
        m_isOutdated = true;
        update();
    }
}

void CardFrame::geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    if (newGeometry.size() != oldGeometry.size())
        update();
}

void CardFrame::drawBody(QImage &image, const QRectF &card, double pixelRatio) const
{
    QPainterPath shape = continuousRoundedRect(card, m_radius);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(pixelRatio, pixelRatio);
    painter.fillPath(shape, m_color);
    painter.setClipRect(card.adjusted(0, card.height() - m_barHeight, 0, 0));
    painter.fillPath(shape, m_barColor);
    painter.end();
    castShadows(image, alphaPlane(image), {shadowAt(std::clamp(m_lift, 0.0, 1.0))}, pixelRatio);
}

QImage CardFrame::drawn(double pixelRatio) const
{
    const QSizeF card(2 * cornerReach + 1, cornerReach + 1 + std::max(cornerReach, m_barHeight));
    const QSizeF whole = card.grownBy({margin, margin, margin, margin});
    QImage image((whole * pixelRatio).toSize(), QImage::Format_RGBA8888_Premultiplied);
    image.fill(Qt::transparent);
    const QRectF place(QPointF(margin, margin), card);
    if (m_part == Part::Body) {
        drawBody(image, place, pixelRatio);
        return image;
    }
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(pixelRatio, pixelRatio);
    painter.strokePath(continuousRoundedRect(place.adjusted(0.5, 0.5, -0.5, -0.5), m_radius - 0.5),
                       QPen(m_color, 1));
    return image;
}

QSGNode *CardFrame::updatePaintNode(QSGNode *node, UpdatePaintNodeData *)
{
    auto *patch = static_cast<QSGNinePatchNode *>(node);
    if (!patch) {
        patch = window()->createNinePatchNode();
        m_isOutdated = true;
    }
    const double pixelRatio = window()->effectiveDevicePixelRatio();
    if (std::exchange(m_isOutdated, false))
        patch->setTexture(window()->createTextureFromImage(drawn(pixelRatio)));
    patch->setBounds(boundingRect().adjusted(-margin, -margin, margin, margin));
    patch->setDevicePixelRatio(pixelRatio);
    const double side = margin + cornerReach;
    patch->setPadding(side, side, side, margin + std::max(cornerReach, m_barHeight));
    patch->update();
    return patch;
}

} // namespace mosslantern
