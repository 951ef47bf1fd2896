#include "ui/editor/text_block_item.h"

#include "render/canvas.h"
#include "ui/editor/image_layer.h"

namespace mosslantern {

TextBlockItem::TextBlockItem(QQuickItem *parent)
    : QQuickItem(parent)
{
    setFlag(ItemHasContents);
}

void TextBlockItem::setBlock(DraggableTextView *block)
{
    if (m_block == block)
        return;
    if (m_block)
        m_block->disconnect(this);
    m_block = block;
    if (block) {
        connect(block, &DraggableTextView::layoutChanged, this, &TextBlockItem::redraw);
        connect(block, &DraggableTextView::drawnScaleChanged, this, &TextBlockItem::redraw);
        connect(block, &DraggableTextView::positionChanged, this, &TextBlockItem::redraw);
        connect(block, &DraggableTextView::dragOffsetChanged, this, &TextBlockItem::follow);
    }
    redraw();
    emit blockChanged();
}

void TextBlockItem::componentComplete()
{
    QQuickItem::componentComplete();
    redraw();
}

void TextBlockItem::itemChange(ItemChange change, const ItemChangeData &value)
{
    QQuickItem::itemChange(change, value);
    if (change == ItemSceneChange || change == ItemDevicePixelRatioHasChanged)
        redraw();
}

void TextBlockItem::redraw()
{
    if (isComponentComplete() && window())
        polish();
}

void TextBlockItem::follow()
{
    if (!m_isWhole && !m_block->dragOffset().isNull())
        redraw();
    update();
}

void TextBlockItem::updatePolish()
{
    if (!m_block || m_block->containerSize().isEmpty())
        return;
    m_pixelRatio = window()->effectiveDevicePixelRatio();
    const Canvas canvas{m_block->containerSize(), m_pixelRatio};
    const QSize pixels = canvas.pixelSize();
    const QPointF offset(m_block->dragOffset().width(), m_block->dragOffset().height());
    const QPointF center = (m_block->center() - offset) * m_pixelRatio;
    const double scale = m_block->drawnScale() * m_pixelRatio;

    // While it moves, whatever of the block can come into view is drawn: its centre stays on the canvas.
    const QRect reachable =
        QRectF(center - QPointF(pixels.width(), pixels.height()), 2 * pixels).toAlignedRect();
    const QRectF bounds = m_block->block().drawnBounds(scale).translated(center);
    const QRect visible(QPoint(), pixels);
    const bool isMoving = !m_block->dragOffset().isNull();
    m_isWhole = isMoving || QRectF(visible).contains(bounds);
    m_layers = m_block->block().draw(center, scale, isMoving ? reachable : visible);
    m_layersAreNew = true;
    ++m_drawings;
    update();
}

QSGNode *TextBlockItem::updatePaintNode(QSGNode *node, UpdatePaintNodeData *)
{
    auto *root = static_cast<QSGTransformNode *>(node);
    if (!root || m_layersAreNew) {
        delete root;
        root = new QSGTransformNode;
        for (const Layer &layer : m_layers) {
            QSGNode *const drawn = makeImageNode(window(), layer.image, layer.at, m_pixelRatio);
            drawn->setFlag(QSGNode::OwnedByParent);
            root->appendChildNode(drawn);
        }
        m_layersAreNew = false;
    }
    const QSizeF offset = m_block ? m_block->dragOffset() : QSizeF(0, 0);
    const QPointF moved =
        QPointF((QPointF(offset.width(), offset.height()) * m_pixelRatio).toPoint()) / m_pixelRatio;
    QMatrix4x4 matrix;
    matrix.translate(static_cast<float>(moved.x()), static_cast<float>(moved.y()));
    root->setMatrix(matrix);
    return root;
}

} // namespace mosslantern
