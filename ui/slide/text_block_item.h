#pragma once

#include "ui/slide/draggable_text_view.h"
#include "ui/slide/drawn_item.h"

#include <QtCore/QPointer>

namespace mosslantern {

/// Draws a text block where it stands on its canvas, which the item fills. The drawing is kept: a block that
/// moves is not drawn again.
class TextBlockItem : public mosslantern::DrawnItem
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
    std::vector<PlacedImage> draw(double pixelRatio) override;
    QPointF shift() const override;

private:
    void follow();

    QPointer<DraggableTextView> m_block;
    bool m_isWhole = true;
    int m_drawings = 0;
};

} // namespace mosslantern
