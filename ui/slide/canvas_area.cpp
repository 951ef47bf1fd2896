#include "ui/slide/canvas_area.h"

#include "render/canvas.h"

#include <QtQuick/QQuickWindow>

namespace mosslantern {

CanvasArea::CanvasArea(QQuickItem *parent)
    : QQuickItem(parent)
{}

void CanvasArea::setFrame(const QRectF &frame)
{
    if (m_frame == frame)
        return;
    m_frame = frame;
    cover();
    emit frameChanged();
}

QRectF CanvasArea::clipRect() const
{
    return boundingRect().adjusted(-1, -1, 1, 1);
}

void CanvasArea::itemChange(ItemChange change, const ItemChangeData &value)
{
    QQuickItem::itemChange(change, value);
    if (change == ItemSceneChange || change == ItemDevicePixelRatioHasChanged)
        cover();
}

void CanvasArea::cover()
{
    const double pixelRatio = window() ? window()->effectiveDevicePixelRatio() : 1;
    const QSizeF pixels = Canvas{m_frame.size(), pixelRatio}.pixelSize();
    setPosition(QPointF((m_frame.topLeft() * pixelRatio).toPoint()) / pixelRatio);
    setSize(m_frame.isEmpty() ? QSizeF(0, 0) : pixels / pixelRatio);
}

} // namespace mosslantern
