#pragma once

#include "ui/editor/draggable_text_view.h"

#include <QtCore/QPointer>
#include <QtQuick/QQuickItem>

namespace mosslantern {

/// Draws a text block where it stands on its canvas, which the item fills. The drawing is kept: a block that
/// moves is not drawn again.
class TextBlockItem : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(mosslantern::DraggableTextView *block READ block WRITE setBlock NOTIFY blockChanged REQUIRED)

public:
    explicit TextBlockItem(QQuickItem *parent = nullptr);

    DraggableTextView *block() const { return m_block; }
    void setBlock(DraggableTextView *block);

    /// How often the block has been drawn.
    int drawings() const { return m_drawings; }

signals:
    void blockChanged();

protected:
    void componentComplete() override;
    void itemChange(ItemChange change, const ItemChangeData &value) override;
    void updatePolish() override;
    QSGNode *updatePaintNode(QSGNode *node, UpdatePaintNodeData *data) override;

private:
    void redraw();
    void follow();

    QPointer<DraggableTextView> m_block;
    std::vector<Layer> m_layers;
    bool m_layersAreNew = false;
    bool m_isWhole = true;
    double m_pixelRatio = 1;
    int m_drawings = 0;
};

} // namespace mosslantern
