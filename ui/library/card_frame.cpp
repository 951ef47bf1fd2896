#include "ui/library/card_frame.h"

#include "render/pixels/continuous_corners.h"
#include "render/pixels/pixels.h"
#include "render/pixels/shadows.h"

#include <QtGui/QPainter>
#include <QtQuick/QQuickWindow>
#include <QtQuick/QSGImageNode>

#include <array>

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
    connect(this, &CardFrame::lookChanged, this, [this] { update(); });
}

void CardFrame::itemChange(ItemChange change, const ItemChangeData &value)
{
    QQuickItem::itemChange(change, value);
    if (change == ItemDevicePixelRatioHasChanged)
        update();
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
    delete node;
    node = new QSGNode;
    const double ratio = window()->effectiveDevicePixelRatio();
    const QImage image = drawn(ratio);
    QSGTexture *const texture = window()->createTextureFromImage(image);
    const double side = margin + cornerReach;
    const double bottom = margin + std::max(cornerReach, m_barHeight);
    const QRectF whole = boundingRect().adjusted(-margin, -margin, margin, margin);
    const std::array x{whole.left(), whole.left() + side, whole.right() - side, whole.right()};
    const std::array y{whole.top(), whole.top() + side, whole.bottom() - bottom, whole.bottom()};
    const std::array u{0.0, side * ratio, image.width() - side * ratio, image.width() * 1.0};
    const std::array v{0.0, side * ratio, image.height() - bottom * ratio, image.height() * 1.0};
    for (size_t row = 0; row < 3; ++row) {
        for (size_t column = 0; column < 3; ++column) {
            // Nothing is seen of the middle.
            if (row == 1 && column == 1)
                continue;
            QSGImageNode *const piece = window()->createImageNode();
            piece->setTexture(texture);
            piece->setOwnsTexture(node->childCount() == 0);
            piece->setRect({QPointF(x[column], y[row]), QPointF(x[column + 1], y[row + 1])});
            piece->setSourceRect({QPointF(u[column], v[row]), QPointF(u[column + 1], v[row + 1])});
            node->appendChildNode(piece);
        }
    }
    return node;
}

} // namespace mosslantern
