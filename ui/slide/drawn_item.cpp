#include "ui/slide/drawn_item.h"

#include "ui/common/picture_node.h"
#include "ui/common/pixel_aligned_node.h"

#include <utility>

namespace mosslantern {

DrawnItem::DrawnItem(QQuickItem *parent)
    : QQuickItem(parent)
{
    setFlag(ItemHasContents);
}

void DrawnItem::redraw()
{
    if (isComponentComplete() && window())
        polish();
}

PlacedImage DrawnItem::place(const QImage &image, QPointF at, double pixelRatio)
{
    return {image, QRectF(at / pixelRatio, QSizeF(image.size()) / pixelRatio)};
}

void DrawnItem::componentComplete()
{
    QQuickItem::componentComplete();
    redraw();
}

void DrawnItem::itemChange(ItemChange change, const ItemChangeData &value)
{
    QQuickItem::itemChange(change, value);
    if (change == ItemSceneChange || change == ItemDevicePixelRatioHasChanged)
        redraw();
}

void DrawnItem::geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    if (newGeometry.size() != oldGeometry.size())
        redraw();
}

void DrawnItem::updatePolish()
{
    m_images = draw(window()->effectiveDevicePixelRatio());
    m_imagesAreNew = true;
    update();
}

QSGNode *DrawnItem::updatePaintNode(QSGNode *node, UpdatePaintNodeData *)
{
    auto *const root = node ? static_cast<PixelAlignedNode *>(node) : new PixelAlignedNode;
    root->place(window()->effectiveDevicePixelRatio(), shift());
    if (!m_imagesAreNew)
        return root;
    m_imagesAreNew = false;
    QSGNode *next = root->firstChild();
    for (const PlacedImage &placed : m_images) {
        auto *shown = static_cast<PictureNode *>(next);
        if (shown) {
            next = shown->nextSibling();
            shown->show(placed.image, placed.rect);
        } else {
            // The software renderer wants a picture in a node that comes to a shown one.
            shown = new PictureNode(window(), QSGTexture::Linear);
            shown->show(placed.image, placed.rect);
            root->appendChildNode(shown);
        }
    }
    while (next)
        delete std::exchange(next, next->nextSibling());
    return root;
}

} // namespace mosslantern
