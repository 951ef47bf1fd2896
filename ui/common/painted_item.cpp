#include "ui/common/painted_item.h"

namespace mosslantern {

void PaintedItem::itemChange(ItemChange change, const ItemChangeData &value)
{
    QQuickPaintedItem::itemChange(change, value);
    if (change == ItemVisibleHasChanged && value.boolValue && m_isOutdated)
        update();
}

QSGNode *PaintedItem::updatePaintNode(QSGNode *node, UpdatePaintNodeData *data)
{
    m_isOutdated = !isVisible();
    return m_isOutdated ? node : QQuickPaintedItem::updatePaintNode(node, data);
}

} // namespace mosslantern
