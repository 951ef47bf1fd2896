#pragma once

#include <QtQml/qqmlregistration.h>
#include <QtQuick/QQuickPaintedItem>

namespace mosslantern {

/// A picture that is painted only while it can be seen. Qt's own painted items are painted, at their whole
/// size, while they are not visible, too.
class PaintedItem : public QQuickPaintedItem
{
    Q_OBJECT
    QML_ANONYMOUS

public:
    using QQuickPaintedItem::QQuickPaintedItem;

protected:
    void itemChange(ItemChange change, const ItemChangeData &value) override;
    QSGNode *updatePaintNode(QSGNode *node, UpdatePaintNodeData *data) override;

private:
    bool m_isOutdated = false;
};

} // namespace mosslantern
