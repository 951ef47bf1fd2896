#include "ui/slide/text_block_item.h"

#include "render/canvas.h"

namespace mosslantern {

TextBlockItem::TextBlockItem(QQuickItem *parent)
    : DrawnItem(parent)
{}

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

void TextBlockItem::follow()
{
    if (!m_isWhole && !m_block->dragOffset().isNull())
        redraw();
    update();
}

std::vector<PlacedImage> TextBlockItem::draw(double pixelRatio)
{
    if (!m_block || m_block->containerSize().isEmpty())
        return {};
    const Canvas canvas{m_block->containerSize(), pixelRatio};
    const QSize pixels = canvas.pixelSize();
    const QPointF offset(m_block->dragOffset().width(), m_block->dragOffset().height());
    const QPointF center = (m_block->center() - offset) * pixelRatio;
    const double scale = m_block->drawnScale() * pixelRatio;

    // While it moves, whatever of the block can come into view is drawn: its centre stays on the canvas.
    const QRect reachable =
        QRectF(center - QPointF(pixels.width(), pixels.height()), 2 * pixels).toAlignedRect();
    const QRectF bounds = m_block->block().drawnBounds(scale).translated(center);
    const QRect visible(QPoint(), pixels);
    const bool isMoving = !m_block->dragOffset().isNull();
    m_isWhole = isMoving || QRectF(visible).contains(bounds);
    ++m_drawings;
    std::vector<PlacedImage> images;
    for (const Layer &layer : m_block->block().draw(center, scale, isMoving ? reachable : visible))
        images.push_back(place(layer.image, layer.at, pixelRatio));
    return images;
}

QPointF TextBlockItem::shift() const
{
    const QSizeF offset = m_block ? m_block->dragOffset() : QSizeF(0, 0);
    return {offset.width(), offset.height()};
}

} // namespace mosslantern
